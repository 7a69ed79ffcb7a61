#pragma once

#include <functional>
#include <string>

#include "forms/field.h"

namespace forms {

// A text on the screen; a hidden one may hold a column's value for a rule.
class Label : public Field {
 public:
  Property<std::string> Caption{*this, {}, Aspect::Value};

  std::function<void()> Click;

  bool TakesFocus() const override { return false; }
  void DoClick() {
    if (Usable()) {
      Fire(Click);
    }
  }

  std::string FieldText() const override { return Caption.get(); }
  void SetFieldText(std::string text) override { Caption = std::move(text); }

 protected:
  std::string OwnCaption() const override { return Caption.get(); }
};

}  // namespace forms
