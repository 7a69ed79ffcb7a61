#pragma once

#include "forms/button.h"

namespace forms {

// The button bar at a screen's foot. Enter outside a field presses `OK` and Esc `Cancel`; `Extra` is the screen's
// own button between them and `Delete` deletes the record; both are hidden until the screen asks for them. `Cancel` has
// no mnemonic: its key is Esc; nor has `Delete`.
class DialogButtons : public Control {
 public:
  DialogButtons();

  Button OK;
  Button Extra;
  Button Cancel;
  Button Delete;
  Button Help;

  bool TakesFocus() const override { return false; }

 protected:
  void RegisterParts(Form& form) override;
};

}  // namespace forms
