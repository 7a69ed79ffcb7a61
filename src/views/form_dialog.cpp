#include "views/form_dialog.h"

namespace views {

FormDialog::FormDialog(wxWindow* parent, forms::Form& form, forms::User& user, const views::Pictures& pictures,
                       session::Settings* places)
    : Dialog(parent, ToWx(form.Caption.get()), wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      FormWindow(*this, form, user, pictures, places) {
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
    event.Veto(event.CanVeto());
    Form().DoClose();
  });
}

void FormDialog::Run() {
  if (Form().Closed()) {
    return;
  }
  Prepare();
  if (!Form().Closed()) {
    ShowModal();
  }
  SaveScreenPosition();
}

void FormDialog::FormClosed() {
  if (IsModal()) {
    EndModal(wxID_OK);
  }
}

}  // namespace views
