#include "forms/dialog_buttons.h"

#include "forms/form.h"

namespace forms {

DialogButtons::DialogButtons() {
  OK.Caption = "&OK";
  Extra.Visible = false;
  Cancel.Caption = "Cancel";
  Help.Caption = "&Help";
  Cancel.CausesValidation = false;
  Help.CausesValidation = false;
  for (Button* button : {&OK, &Extra, &Cancel, &Help}) {
    button->Container = this;
  }
}

void DialogButtons::RegisterParts(Form& form) {
  form.Add(Name() + ".OK", OK);
  form.Add(Name() + ".Extra", Extra);
  form.Add(Name() + ".Cancel", Cancel);
  form.Add(Name() + ".Help", Help);
  form.SetDefaultButton(&OK);
  form.SetCancelButton(&Cancel);
}

}  // namespace forms
