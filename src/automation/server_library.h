#pragma once

#include <windows.h>

#include <unknwn.h>

#include <string>

#include "automation/com_error.h"
#include "automation/com_ptr.h"

namespace automation {

// An in-process server's file, used without the registry; COM for as long as it lives.
class ServerLibrary {
 public:
  // Throws std::runtime_error when it cannot be loaded.
  explicit ServerLibrary(std::wstring path);
  ServerLibrary(const ServerLibrary&) = delete;
  ServerLibrary& operator=(const ServerLibrary&) = delete;
  ~ServerLibrary();

  const std::wstring& Path() const { return path_; }

  HRESULT Register() const { return Call("DllRegisterServer"); }
  HRESULT Unregister() const { return Call("DllUnregisterServer"); }
  bool InUse() const { return Call("DllCanUnloadNow") == S_FALSE; }

  // Both throw ComError.
  ComPtr<IClassFactory> Factory(REFCLSID class_id) const;
  template <typename Interface, typename Class>
  ComPtr<Interface> Make() const {
    ComPtr<Interface> object;
    Check(Factory(__uuidof(Class))->CreateInstance(nullptr, __uuidof(Interface), object.OutVoid()));
    return object;
  }

 private:
  HRESULT Call(const char* name) const;

  std::wstring path_;
  HMODULE library_ = nullptr;
};

}  // namespace automation
