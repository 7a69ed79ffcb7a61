#include "desk/frmLogin_view.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/field_group.h"
#include "views/text_binders.h"

namespace host {

void LayOut_frmLogin(views::FormDialog& dialog, frmLogin& form) {
  const int gap = dialog.FromDIP(10);
  views::FieldGroup group(&dialog, "Log in");
  const auto row = [&](forms::Label& caption, forms::TextBox& field) {
    wxWindow* label = views::MakeCaption(group.Box(), caption);
    group.Row(label, {views::MakeTextBox(group.Box(), field, 26)});
  };
  row(form.lblUser, form.txtUser);
  row(form.lblPassword, form.txtPassword);
  wxWindow* office = views::MakeCaption(group.Box(), form.lblOffice);
  group.Row(office, {views::MakeComboBox(group.Box(), form.cboOffice, 20)});

  auto* page = new wxBoxSizer(wxVERTICAL);
  wxWindow* practice = views::MakeLabel(&dialog, form.lblPractice);
  practice->SetFont(practice->GetFont().Scaled(1.4F).Bold());
  page->Add(practice, wxSizerFlags().Expand().Border(wxLEFT | wxTOP | wxRIGHT, gap));
  page->Add(group.Sizer(), wxSizerFlags(1).Expand().Border(wxALL, gap));
  page->Add(views::MakeLabel(&dialog, form.lblHint), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  page->Add(views::MakeLabel(&dialog, form.lblMessage), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, gap));
  page->Add(views::MakeDialogButtons(&dialog, form.DialogButtons1), wxSizerFlags().Expand().Border(wxALL, gap));
  dialog.SetSizer(page);
}

}  // namespace host
