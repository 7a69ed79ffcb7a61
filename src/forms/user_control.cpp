#include "forms/user_control.h"

#include "forms/form.h"

namespace forms {

void UserControl::Add(const std::string& name, Control& control) {
  parts_.emplace_back(name, &control);
  if (control.Container == nullptr) {
    Adopt(control);
  }
}

void UserControl::Adopt(Control& control) {
  control.Container = this;
}

void UserControl::RegisterParts(Form& form) {
  for (const auto& [name, control] : parts_) {
    form.Add(Scope() + name, *control);
  }
}

void DropPanel::Drop(const Control& below) {
  Below = &below;
  Visible = true;
}

void DropPanel::OnFocus(Control* control) {
  if (Visible && control != Below && (control == nullptr || !control->LiesOn(*this))) {
    Visible = false;
    OnFocusLeft();
  }
}

const DropPanel* DropPanelUnder(const Control& control) {
  for (const Control* at = control.Container; at != nullptr; at = at->Container) {
    if (const auto* panel = dynamic_cast<const DropPanel*>(at)) {
      return panel;
    }
  }
  return nullptr;
}

}  // namespace forms
