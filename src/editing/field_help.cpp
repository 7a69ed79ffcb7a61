#include "editing/field_help.h"

#include "forms/text.h"
#include "forms/text_box.h"

namespace editing {

FieldHelp::FieldHelp(const session::ScreenContext& context) : Rules(context) {
  Add("Label3", Label3);
  Label3.Click = [this] { Visible = false; };
}

void FieldHelp::Set(const forms::Control& field, std::string text) {
  constexpr std::string_view kLineMark = "////";
  for (std::size_t at = text.find(kLineMark); at != std::string::npos; at = text.find(kLineMark, at)) {
    text.replace(at, kLineMark.size(), "\r\n");
  }
  texts_[&field] = std::move(text);
}

void FieldHelp::Show() {
  if (const auto text = texts_.find(field_); text != texts_.end()) {
    Label3.Caption = text->second;
    Drop(*field_);
  }
}

void FieldHelp::OnLoad() {
  pops_up_ = forms::IsOn(context_.session.OfficeSetting("DEFAULT_OFFICE_SETUP", "POPUP_HELP_FLAG"));
}

// The text of a field stays while the person works in a panel that dropped below it.
void FieldHelp::OnFocus(forms::Control* control) {
  if (control != nullptr && forms::DropPanelUnder(*control) != nullptr) {
    return;
  }
  Visible = false;
  if (dynamic_cast<const forms::TextBox*>(control) != nullptr) {
    field_ = control;
    if (pops_up_) {
      Show();
    }
  }
}

}  // namespace editing
