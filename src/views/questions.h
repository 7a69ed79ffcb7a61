#pragma once

#include <wx/calctrl.h>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "forms/user.h"
#include "views/dialog.h"

class wxTextCtrl;

namespace views {

// A message box with the buttons' own captions. Long text wraps, and very long text scrolls.
class MessageDialog : public Dialog {
 public:
  MessageDialog(wxWindow* parent, const forms::Message& message);

  // After `ShowModal`. The close box and Esc are Cancel, or the last button.
  forms::Answer Chosen() const { return chosen_; }

 private:
  forms::Answer chosen_;
};

// A prompt and a field under it; `ShowModal` gives wxID_OK or wxID_CANCEL.
class InputDialog : public Dialog {
 public:
  InputDialog(wxWindow* parent, const forms::InputBox& box);

  std::string Text() const;

 private:
  wxTextCtrl* text_;
};

// A month to choose a day from; `ShowModal` gives wxID_OK or wxID_CANCEL.
class CalendarDialog : public Dialog {
 public:
  CalendarDialog(wxWindow* parent, std::string_view title, std::chrono::year_month_day start);

  std::chrono::year_month_day Day() const;

 private:
  wxCalendarCtrl* calendar_;
};

}  // namespace views
