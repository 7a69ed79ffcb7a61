#pragma once

#include <windows.h>

#include <new>

#include "automation/com_error.h"
#include "automation/counted.h"

namespace automation {

// Makes instances of a class that has a constructor without arguments; nothing can be aggregated.
template <typename Object>
class ClassFactory final : public Counted<IClassFactory> {
 public:
  // For DllGetClassObject.
  static HRESULT Give(REFIID interface_id, void** factory) {
    auto* made = new (std::nothrow) ClassFactory;
    if (made == nullptr) {
      return E_OUTOFMEMORY;
    }
    const HRESULT result = made->QueryInterface(interface_id, factory);
    made->Release();
    return result;
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (object == nullptr) {
      return E_POINTER;
    }
    *object = nullptr;
    if (outer != nullptr) {
      return CLASS_E_NOAGGREGATION;
    }
    try {
      auto* made = new Object;
      const HRESULT result = made->QueryInterface(id, object);
      made->Release();
      return result;
    } catch (...) {
      return ResultOfException();
    }
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    LockModule(lock != FALSE);
    return S_OK;
  }
};

}  // namespace automation
