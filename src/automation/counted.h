#pragma once

#include <windows.h>

#include <ocidl.h>

#include <atomic>
#include <type_traits>

#include "automation/module.h"

namespace automation {

// A COM object: counted from 1, deleted by its last Release, known by these interfaces and what they derive from.
template <typename First, typename... Others>
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): only Release deletes it
class Counted : public First, public Others... {
 public:
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) {
      return E_POINTER;
    }
    *object = id == IID_IUnknown ? static_cast<First*>(this) : nullptr;
    (Find<First>(id, object) || ... || Find<Others>(id, object));
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

 protected:
  Counted() = default;
  virtual ~Counted() = default;

  ULONG References() const { return references_; }

 private:
  template <typename Interface>
  bool Find(REFIID id, void** object) {
    const bool found = id == __uuidof(Interface) || (std::is_base_of_v<IDispatch, Interface> && id == IID_IDispatch) ||
                       (std::is_base_of_v<IProvideClassInfo, Interface> && id == IID_IProvideClassInfo);
    if (found && *object == nullptr) {
      *object = static_cast<Interface*>(this);
    }
    return found;
  }

  LivingObject living_;
  std::atomic<ULONG> references_ = 1;
};

}  // namespace automation
