#pragma once

#include <functional>
#include <string>

#include "forms/control.h"

namespace forms {

// A control that holds one value, which a record binding reads and writes as text.
class Field : public Control {
 public:
  // The column that it is bound to; empty for none.
  std::string DataField;
  // How a value is told to a person where the field keeps an ID or a code; as it is without.
  std::function<std::string(const std::string& value)> Told;

  // A check box is "1", "0" or, mixed, empty; a list gives its current entry's text or number.
  virtual std::string FieldText() const = 0;
  virtual void SetFieldText(std::string text) = 0;
  // How many characters its column takes; 0 is unlimited.
  virtual void SetRoom(int /*characters*/) {}
};

}  // namespace forms
