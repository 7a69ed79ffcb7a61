#pragma once

#include "views/dialog.h"
#include "views/form_window.h"

namespace views {

// A form as a dialog of its own.
class FormDialog : public Dialog, public FormWindow {
 public:
  FormDialog(wxWindow* parent, forms::Form& form, forms::User& user, const views::Pictures& pictures,
             session::Settings* places);

  using Dialog::CallAfter;

  // Shows the form and returns when it is closed.
  void Run();

 private:
  void FormClosed() override;
};

}  // namespace views
