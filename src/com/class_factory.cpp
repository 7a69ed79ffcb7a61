#include "com/class_factory.h"

#include <atomic>
#include <new>

#include "com/editing_screen_object.h"
#include "com/look_up_list_object.h"

namespace com {
namespace {

template <typename Object>
class ClassFactory final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) {
      return E_POINTER;
    }
    *object = id == IID_IUnknown || id == IID_IClassFactory ? this : nullptr;
    if (*object == nullptr) {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      delete this;
    }
    return left;
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (object == nullptr) {
      return E_POINTER;
    }
    *object = nullptr;
    if (outer != nullptr) {
      return CLASS_E_NOAGGREGATION;
    }
    HRESULT result = S_OK;
    const HRESULT passed = Guarded(*this, nullptr, IID_IClassFactory, [&] {
      auto* made = new Object;
      result = made->QueryInterface(id, object);
      made->Release();
    });
    return FAILED(passed) ? passed : result;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    LockModule(lock != FALSE);
    return S_OK;
  }

 private:
  ~ClassFactory() = default;

  LivingObject living_;
  std::atomic<ULONG> references_ = 1;
};

template <typename Object>
HRESULT Give(REFIID interface_id, void** factory) {
  auto* made = new (std::nothrow) ClassFactory<Object>;
  if (made == nullptr) {
    return E_OUTOFMEMORY;
  }
  const HRESULT result = made->QueryInterface(interface_id, factory);
  made->Release();
  return result;
}

}  // namespace

HRESULT GetClassFactory(REFCLSID class_id, REFIID interface_id, void** factory) {
  if (factory == nullptr) {
    return E_POINTER;
  }
  *factory = nullptr;
  if (class_id == __uuidof(::EditingScreen)) {
    return Give<EditingScreenObject>(interface_id, factory);
  }
  if (class_id == __uuidof(::LookUpList)) {
    return Give<LookUpListObject>(interface_id, factory);
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace com
