#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/editing/editing_views.h"
#include "views/field_group.h"
#include "views/insurance/frmEmployer_view.h"

namespace views {
namespace {

using insurance::frmEmployer;

wxSizer* CompanyGroup(FormDialog& dialog, frmEmployer& form) {
  FieldGroup group(&dialog, "Employer");
  group.Row({{form.Text1[frmEmployer::kName], 36}});
  group.Row({{form.Text1[frmEmployer::kAddress1], 36}});
  group.Row({{form.Text1[frmEmployer::kAddress2], 36}});
  LayOut(group, form.ZipCodes);
  group.Row({{form.Text1[frmEmployer::kPhone], 20}});
  return group.Sizer();
}

}  // namespace

// The company stands above; the plans that it offers have their place between it and the buttons.
void LayOut_frmEmployer(FormDialog& dialog, frmEmployer& form) {
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(CompanyGroup(dialog, form), wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(10)));
  page->AddStretchSpacer();
  page->Add(MakeDialogButtons(&dialog, form.DialogButtons1), wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(10)));
  dialog.SetSizer(page);
}

}  // namespace views
