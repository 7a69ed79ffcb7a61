#pragma once

#include <windows.h>

#include <string>

#include "com/com_ptr.h"

namespace com {

// Counts one object of the component for as long as it lives.
class LivingObject {
 public:
  LivingObject();
  LivingObject(const LivingObject&) = delete;
  LivingObject& operator=(const LivingObject&) = delete;
  ~LivingObject();
};

// A class factory's LockServer.
void LockModule(bool lock);
// Whether an object lives or the component is locked; what the slots hold is the host's and does not count.
bool ModuleInUse();

// The library or program that this code is linked into.
HINSTANCE Module();
std::wstring ModulePath();
// Of the type library that comes with the component. Throws ComError.
ComPtr<ITypeLib> TypeLibrary();
ComPtr<ITypeInfo> TypeInfoOf(const GUID& id);

}  // namespace com
