#include "views/binding.h"

#include <wx/textctrl.h>

#include "views/accessible_name.h"
#include "views/form_window.h"

namespace views {
namespace {

wxColour ToWx(const std::optional<forms::Color>& color) {
  return color ? wxColour(color->red, color->green, color->blue) : wxNullColour;
}

}  // namespace

wxString ToWx(std::string_view utf8) {
  return wxString::FromUTF8(utf8.data(), utf8.size());
}

std::string FromWx(const wxString& text) {
  return text.utf8_string();
}

void KeepOutOfTabOrder(wxWindow& widget) {
  widget.DisableFocusFromKeyboard();
  widget.SetCanFocus(false);
}

// A field that is given the keyboard selects its text.
void TakeFocusBack(wxWindow& widget) {
  auto* text = dynamic_cast<wxTextCtrl*>(&widget);
  if (text == nullptr) {
    widget.SetFocus();
    return;
  }
  long from = 0;
  long to = 0;
  text->GetSelection(&from, &to);
  text->SetFocus();
  text->SetSelection(from, to);
}

Binding::Binding(forms::Control& control, wxWindow& widget) : control_(control), widget_(widget) {
  widget_.SetName(views::ToWx(control.Name()));
  control_.Watch(this);
}

Binding::~Binding() {
  control_.Watch(nullptr);
}

FormWindow& Binding::Dialog() const {
  return FormWindow::Of(widget_);
}

void Binding::TakeFocus() const {
  FocusWidget().SetFocus();
  if (auto* text = dynamic_cast<wxTextCtrl*>(&FocusWidget()); text != nullptr && text->IsSingleLine()) {
    text->SelectAll();
  }
}

void Binding::Deselect() const {
  if (auto* text = dynamic_cast<wxTextCtrl*>(&FocusWidget()); text != nullptr && text->IsSingleLine()) {
    text->SelectNone();
  }
}

void Binding::ControlChanged(forms::Control& /*control*/, forms::Aspect aspect) {
  if (aspect == forms::Aspect::State) {
    ShowState();
  }
  Refresh(aspect);
  if (aspect != forms::Aspect::Items) {
    ShowName();
    Dialog().HeadingChanged(control_);
  }
}

void Binding::ShowName() const {
  SetAccessibleName(FocusWidget(), control_.SpokenName());
}

// A container that has a widget hides and disables what is in it; one without leaves that to the widgets.
void Binding::ShowVisible() {
  bool visible = control_.Visible;
  bool enabled = control_.Enabled;
  for (const forms::Control* panel = control_.Container; panel != nullptr && Dialog().Find(*panel) == nullptr;
       panel = panel->Container) {
    visible = visible && panel->Visible;
    enabled = enabled && panel->Enabled;
  }
  if (widget_.IsShown() != visible) {
    widget_.Show(visible);
    Dialog().LayOutSoon();
  }
  widget_.Enable(enabled);
}

void Binding::ShowState() {
  ShowVisible();
  if (widget_.GetToolTipText() != views::ToWx(control_.ToolTip.get())) {
    widget_.SetToolTip(views::ToWx(control_.ToolTip.get()));
  }
  const wxColour fore = ToWx(control_.ForeColor.get());
  const wxColour back = ToWx(control_.BackColor.get());
  if (fore.IsOk() || widget_.UseForegroundColour()) {
    widget_.SetForegroundColour(fore);
  }
  if (back.IsOk() || widget_.UseBackgroundColour()) {
    widget_.SetBackgroundColour(back);
  }
}

}  // namespace views
