#include "automation/server_library.h"

#include <objbase.h>

#include <stdexcept>

#include "automation/wide_text.h"

namespace automation {
namespace {

template <typename Function>
Function Find(HMODULE library, const char* name) {
  FARPROC found = GetProcAddress(library, name);
  if (found == nullptr) {
    throw ComError(CO_E_ERRORINDLL);
  }
  return reinterpret_cast<Function>(reinterpret_cast<void*>(found));
}

}  // namespace

ServerLibrary::ServerLibrary(std::wstring path) : path_(std::move(path)), library_(LoadLibraryW(path_.c_str())) {
  if (library_ == nullptr) {
    throw std::runtime_error(ToUtf8(path_) + " cannot be loaded.");
  }
  CoInitialize(nullptr);
}

ServerLibrary::~ServerLibrary() {
  FreeLibrary(library_);
  CoUninitialize();
}

ComPtr<IClassFactory> ServerLibrary::Factory(REFCLSID class_id) const {
  using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  ComPtr<IClassFactory> factory;
  Check(Find<GetClassObject>(library_, "DllGetClassObject")(class_id, IID_IClassFactory, factory.OutVoid()));
  return factory;
}

HRESULT ServerLibrary::Call(const char* name) const {
  return Find<HRESULT(STDAPICALLTYPE*)()>(library_, name)();
}

}  // namespace automation
