#pragma once

#include <windows.h>

#include <oleauto.h>
#include <twSimpleEditScreens.h>

#include <array>
#include <stdexcept>
#include <string>

#include "automation/com_ptr.h"
#include "automation/variant.h"

namespace test_support {

using automation::ComPtr;

// COM for as long as it lives, and a TWSESC22.dll of a folder beside the test program, loaded by its path.
class Component {
 public:
  explicit Component(const std::wstring& folder) {
    CoInitialize(nullptr);
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    path = path.substr(0, path.rfind(L'\\') + 1) + folder + L"\\TWSESC22.dll";
    library_ = LoadLibraryW(path.c_str());
    if (library_ == nullptr) {
      throw std::runtime_error("the library cannot be loaded: " + automation::ToUtf8(path));
    }
    path_ = path;
  }
  Component(const Component&) = delete;
  Component& operator=(const Component&) = delete;
  ~Component() {
    FreeLibrary(library_);
    CoUninitialize();
  }

  const std::wstring& Path() const { return path_; }

  HRESULT Register() const { return Call("DllRegisterServer"); }
  HRESULT Unregister() const { return Call("DllUnregisterServer"); }
  bool InUse() const { return Call("DllCanUnloadNow") == S_FALSE; }

  ComPtr<IClassFactory> Factory(REFCLSID class_id) const {
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    ComPtr<IClassFactory> factory;
    automation::Check(Find<GetClassObject>("DllGetClassObject")(class_id, IID_IClassFactory, factory.OutVoid()));
    return factory;
  }
  // An instance without the registry.
  template <typename Interface, typename Class>
  ComPtr<Interface> Make() const {
    ComPtr<Interface> object;
    automation::Check(Factory(__uuidof(Class))->CreateInstance(nullptr, __uuidof(Interface), object.OutVoid()));
    return object;
  }

 private:
  template <typename Function>
  Function Find(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library_, name)));
  }
  HRESULT Call(const char* name) const { return Find<HRESULT(STDAPICALLTYPE*)()>(name)(); }

  HMODULE library_ = nullptr;
  std::wstring path_;
};

}  // namespace test_support
