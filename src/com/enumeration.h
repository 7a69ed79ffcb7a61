#pragma once

#include <windows.h>

#include <ocidl.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "automation/com_ptr.h"
#include "automation/counted.h"

namespace com {

using automation::ComPtr;

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
class Enumeration final : public automation::Counted<Interface> {
 public:
  explicit Enumeration(std::vector<Item> items, std::size_t at = 0) : items_(std::move(items)), at_(at) {}

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
  std::vector<Item> items_;
  std::size_t at_;
};

}  // namespace com
