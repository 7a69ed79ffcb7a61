#pragma once

#include <string>

#include "forms/control.h"

namespace forms {

// A control that holds one value, which a record binding reads and writes as text.
class Field : public Control {
 public:
  // The column that it is bound to; empty for none.
  std::string DataField;

  // A check box is "1", "0" or, mixed, empty; a list gives its current entry's text or number.
  virtual std::string FieldText() const = 0;
  virtual void SetFieldText(std::string text) = 0;
  // How many characters its column takes; 0 is unlimited.
  virtual void SetRoom(int /*characters*/) {}
};

}  // namespace forms
