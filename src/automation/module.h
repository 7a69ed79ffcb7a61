#pragma once

#include <windows.h>

#include <string>

namespace automation {

// Counts one object of the library or program for as long as it lives.
class LivingObject {
 public:
  LivingObject();
  LivingObject(const LivingObject&) = delete;
  LivingObject& operator=(const LivingObject&) = delete;
  ~LivingObject();
};

// A class factory's LockServer.
void LockModule(bool lock);
// Whether an object lives or the library is locked.
bool ModuleInUse();

// The library or program that this code is linked into.
HINSTANCE Module();
std::wstring ModulePath();
// Without a separator at the end.
std::wstring ModuleFolder();

}  // namespace automation
