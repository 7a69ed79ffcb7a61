#pragma once

#include <functional>
#include <string>

#include "forms/control.h"

namespace forms {

// A text on the screen; a hidden one may hold a column's value for a rule.
class Label : public Control {
 public:
  Property<std::string> Caption{*this, {}, Aspect::Value};

  // Set whenever `Caption` becomes different; cleared by a record binding.
  bool DataChanged = false;

  std::function<void()> Click;

  bool TakesFocus() const override { return false; }
  void DoClick() {
    if (Usable()) {
      Fire(Click);
    }
  }

  void Changed(Aspect aspect) override {
    DataChanged = DataChanged || aspect == Aspect::Value;
    Control::Changed(aspect);
  }
};

}  // namespace forms
