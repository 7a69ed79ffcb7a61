// The exports of practice_host.dll.
#include <windows.h>

#include <array>

#include "automation/class_factory.h"
#include "automation/module.h"
#include "automation/practice_object.h"
#include "automation/registration.h"

namespace {

constexpr CLSID kPracticeClass = {0x3C02FF2E, 0xFE5F, 0x4265, {0xB5, 0x60, 0x82, 0xD6, 0xBF, 0xC7, 0x74, 0xB8}};
constexpr std::array<automation::ClassEntry, 1> kClasses = {
    {{kPracticeClass, L"PracticeDesk.Practice", L"Practice host for scripts"}}};

}  // namespace

STDAPI DllGetClassObject(REFCLSID class_id, REFIID interface_id, LPVOID* factory) {
  if (factory == nullptr) {
    return E_POINTER;
  }
  *factory = nullptr;
  return class_id == kPracticeClass ? automation::ClassFactory<host::PracticeObject>::Give(interface_id, factory)
                                    : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
  return automation::ModuleInUse() ? S_FALSE : S_OK;
}

STDAPI DllRegisterServer() {
  return automation::Register(kClasses, [](HKEY) {});
}

STDAPI DllUnregisterServer() {
  return automation::Unregister(kClasses, [](HKEY) {});
}
