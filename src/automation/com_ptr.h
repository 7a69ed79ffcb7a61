#pragma once

#include <windows.h>

#include <unknwn.h>

#include <utility>

namespace automation {

// Owns one reference of a COM object, or none.
template <typename T>
class ComPtr {
 public:
  ComPtr() = default;
  explicit ComPtr(T* object) : object_(object) {
    if (object_ != nullptr) {
      object_->AddRef();
    }
  }
  ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(const ComPtr& other) {
    *this = ComPtr(other);
    return *this;
  }
  ComPtr& operator=(ComPtr&& other) noexcept {
    const ComPtr held = Adopt(std::exchange(object_, std::exchange(other.object_, nullptr)));
    return *this;
  }
  ~ComPtr() {
    if (object_ != nullptr) {
      object_->Release();
    }
  }

  // Takes over a reference that somebody else counted.
  static ComPtr Adopt(T* object) {
    ComPtr owned;
    owned.object_ = object;
    return owned;
  }

  T* Get() const { return object_; }
  T* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  // Where a function puts its result; what was held is released.
  T** Out() {
    *this = ComPtr();
    return &object_;
  }
  void** OutVoid() { return reinterpret_cast<void**>(Out()); }
  // A counted reference for a caller.
  T* Copy() const {
    if (object_ != nullptr) {
      object_->AddRef();
    }
    return object_;
  }
  // Nothing when the object has no such interface.
  template <typename Other>
  ComPtr<Other> As() const {
    ComPtr<Other> other;
    if (object_ != nullptr) {
      object_->QueryInterface(__uuidof(Other), other.OutVoid());
    }
    return other;
  }

 private:
  T* object_ = nullptr;
};

}  // namespace automation
