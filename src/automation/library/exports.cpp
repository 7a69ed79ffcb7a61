// The exports of every in-process server.
#include "automation/module.h"
#include "automation/server.h"

STDAPI DllGetClassObject(REFCLSID class_id, REFIID interface_id, LPVOID* factory) {
  if (factory == nullptr) {
    return E_POINTER;
  }
  *factory = nullptr;
  for (const automation::ServedClass& served : automation::ThisServer().classes) {
    if (served.id == class_id) {
      return served.give_factory(interface_id, factory);
    }
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
  return automation::ModuleInUse() ? S_FALSE : S_OK;
}

STDAPI DllRegisterServer() {
  return automation::Register(automation::ThisServer());
}

STDAPI DllUnregisterServer() {
  return automation::Unregister(automation::ThisServer());
}
