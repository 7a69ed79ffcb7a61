#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace forms {

// What part of a control or form changed, so that a view repaints no more than that.
enum class Aspect { State, Value, Items, Focus };

// Something whose properties are watched.
class Observable {
 public:
  Observable() = default;
  Observable(const Observable&) = delete;
  Observable& operator=(const Observable&) = delete;
  virtual ~Observable() = default;

  virtual void Changed(Aspect aspect) = 0;
};

// A value that tells its owner when it is given a different one.
template <typename T>
class Property {
 public:
  explicit Property(Observable& owner, T value = {}, Aspect aspect = Aspect::State)
      : owner_(owner), value_(std::move(value)), aspect_(aspect) {}
  Property(const Property&) = delete;
  Property& operator=(const Property&) = delete;
  ~Property() = default;

  Property& operator=(T value) {
    if (!(value_ == value)) {
      value_ = std::move(value);
      owner_.Changed(aspect_);
    }
    return *this;
  }

  // NOLINTNEXTLINE(google-explicit-constructor): a property reads like the value that it holds.
  operator const T&() const { return value_; }
  const T& get() const { return value_; }
  const T* operator->() const { return &value_; }

  friend bool operator==(const Property& property, const T& value) { return property.value_ == value; }

 private:
  Observable& owner_;
  T value_;
  Aspect aspect_;
};

}  // namespace forms
