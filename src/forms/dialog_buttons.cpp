#include "forms/dialog_buttons.h"

#include "forms/form.h"

namespace forms {

DialogButtons::DialogButtons() {
  OK.Caption = "&OK";
  Extra.Visible = false;
  Cancel.Caption = "Cancel";
  Delete.Caption = "Delete";
  Delete.Visible = false;
  Help.Caption = "&Help";
  Cancel.CausesValidation = false;
  Help.CausesValidation = false;
  for (Button* button : {&OK, &Extra, &Cancel, &Delete, &Help}) {
    button->Container = this;
  }
}

void DialogButtons::RegisterParts(Form& form) {
  form.Add(Name() + ".OK", OK);
  form.Add(Name() + ".Extra", Extra);
  form.Add(Name() + ".Cancel", Cancel);
  form.Add(Name() + ".Delete", Delete);
  form.Add(Name() + ".Help", Help);
  form.SetDefaultButton(&OK);
  form.SetCancelButton(&Cancel);
}

}  // namespace forms
