#include "desk/frmLogin_view.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/field_group.h"
#include "views/text_binders.h"

namespace host {

void LayOut_frmLogin(views::FormDialog& dialog, frmLogin& form) {
  const int gap = dialog.FromDIP(10);
  views::FieldGroup group(&dialog, "Practice");
  const auto row = [&](forms::Label& caption, forms::TextBox& field) {
    wxWindow* label = views::MakeCaption(group.Box(), caption);
    group.Row(label, {views::MakeTextBox(group.Box(), field, 26)});
  };
  row(form.lblUser, form.txtUser);
  row(form.lblPassword, form.txtPassword);
  wxWindow* office = views::MakeCaption(group.Box(), form.lblOffice);
  group.Row(office, {views::MakeComboBox(group.Box(), form.cboOffice, 20)});

  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(group.Sizer(), wxSizerFlags(1).Expand().Border(wxALL, gap));
  page->Add(views::MakeLabel(&dialog, form.lblMessage), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, gap));
  page->Add(views::MakeDialogButtons(&dialog, form.DialogButtons1), wxSizerFlags().Expand().Border(wxALL, gap));
  dialog.SetSizer(page);
}

}  // namespace host
