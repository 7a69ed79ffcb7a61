#pragma once

#include <wx/window.h>

#include <string>
#include <string_view>

#include "forms/control.h"

namespace views {

class FormWindow;

wxString ToWx(std::string_view utf8);
std::string FromWx(const wxString& text);

// The Tab key passes the widget by, and a click leaves the focus where it is.
void KeepOutOfTabOrder(wxWindow& widget);

// Gives a widget the keyboard, and leaves the text that is selected in it as it is.
void TakeFocusBack(wxWindow& widget);

// Ties a control to the widget that shows it. What every control has (whether it is seen and usable, tip, colours)
// is shown here, the rest in `Refresh`. Owned by the dialog that the widget is in.
class Binding : public forms::ControlObserver {
 public:
  // Gives the widget the control's name.
  Binding(forms::Control& control, wxWindow& widget);
  Binding(const Binding&) = delete;
  Binding& operator=(const Binding&) = delete;
  ~Binding() override;

  forms::Control& Control() const { return control_; }
  wxWindow& Widget() const { return widget_; }
  FormWindow& Dialog() const;

  // What the keyboard's focus goes to.
  virtual wxWindow& FocusWidget() const { return widget_; }
  // The text of a single line is then selected, as the Tab key does.
  void TakeFocus() const;
  // Selected text would look as if the keyboard were still there.
  void Deselect() const;
  // False for a widget that a click leaves without the keyboard.
  virtual bool HoldsFocus() const { return true; }
  // The Tab key comes here, from the control before or from the one behind.
  virtual void TabInto(bool /*backward*/) { TakeFocus(); }
  // The Tab key goes on within the widget; false when it leaves it.
  virtual bool TabWithin(bool /*backward*/) { return false; }
  // The widget has its own use for a key that no rule took.
  virtual bool Uses(forms::Key /*key*/) const { return false; }

  void ControlChanged(forms::Control& control, forms::Aspect aspect) final;
  // Gives assistive tools the control's spoken name.
  void ShowName() const;

 protected:
  virtual void Refresh(forms::Aspect /*aspect*/) {}
  // Whether it is seen, and can be acted on.
  virtual void ShowVisible();

 private:
  void ShowState();

  forms::Control& control_;
  wxWindow& widget_;
};

}  // namespace views
