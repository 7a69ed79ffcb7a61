// The exports of TWSESC22.dll.
#include <windows.h>

#include "automation/module.h"
#include "com/class_factory.h"
#include "com/registration.h"

STDAPI DllGetClassObject(REFCLSID class_id, REFIID interface_id, LPVOID* factory) {
  return com::GetClassFactory(class_id, interface_id, factory);
}

STDAPI DllCanUnloadNow() {
  return automation::ModuleInUse() ? S_FALSE : S_OK;
}

STDAPI DllRegisterServer() {
  return com::Register();
}

STDAPI DllUnregisterServer() {
  return com::Unregister();
}
