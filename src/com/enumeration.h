#pragma once

#include <windows.h>

#include <ocidl.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <utility>
#include <vector>

#include "com/com_ptr.h"
#include "com/module.h"

namespace com {

// An item of an enumeration, and how a caller gets it.
struct PointItem {
  using Raw = IConnectionPoint*;
  ComPtr<IConnectionPoint> point;
  Raw Give() const { return point.Copy(); }
};
struct SinkItem {
  using Raw = CONNECTDATA;
  ComPtr<IUnknown> sink;
  DWORD cookie = 0;
  Raw Give() const { return {sink.Copy(), cookie}; }
};

// A COM enumerator (IEnumConnectionPoints, IEnumConnections) over items that it keeps.
template <typename Interface, typename Item>
class Enumeration final : public Interface {
 public:
  explicit Enumeration(std::vector<Item> items, std::size_t at = 0) : items_(std::move(items)), at_(at) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) {
      return E_POINTER;
    }
    *object = id == IID_IUnknown || id == __uuidof(Interface) ? this : nullptr;
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

  HRESULT STDMETHODCALLTYPE Next(ULONG count, typename Item::Raw* given, ULONG* fetched) override {
    if (given == nullptr || (fetched == nullptr && count != 1)) {
      return E_POINTER;
    }
    const auto taken = static_cast<ULONG>(std::min<std::size_t>(count, items_.size() - at_));
    for (ULONG i = 0; i < taken; ++i) {
      given[i] = items_[at_++].Give();
    }
    if (fetched != nullptr) {
      *fetched = taken;
    }
    return taken == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    const auto skipped = std::min<std::size_t>(count, items_.size() - at_);
    at_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    at_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(Interface** copy) override {
    if (copy == nullptr) {
      return E_POINTER;
    }
    *copy = new (std::nothrow) Enumeration(items_, at_);
    return *copy == nullptr ? E_OUTOFMEMORY : S_OK;
  }

 private:
  ~Enumeration() = default;

  LivingObject living_;
  std::atomic<ULONG> references_ = 1;
  std::vector<Item> items_;
  std::size_t at_;
};

}  // namespace com
