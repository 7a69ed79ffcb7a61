#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/editing/editing_views.h"
#include "views/field_group.h"
#include "views/insurance/frmEmployer_view.h"
#include "views/insurance/ucSelCoverage_view.h"

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

wxSizer* PlansGroup(FormDialog& dialog, frmEmployer& form) {
  constexpr int kLines = 7;
  auto* group = new wxStaticBoxSizer(wxVERTICAL, &dialog, "Insurance Plans");
  wxWindow* box = group->GetStaticBox();
  box->SetName("group Insurance Plans");
  group->Add(MakeSelCoverage(box, form.ucSelCoverage1, kLines),
             wxSizerFlags(1).Expand().Border(wxALL, dialog.FromDIP(8)));
  return group;
}

}  // namespace

void LayOut_frmEmployer(FormDialog& dialog, frmEmployer& form) {
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(CompanyGroup(dialog, form), wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(10)));
  page->Add(PlansGroup(dialog, form), wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, dialog.FromDIP(10)));
  page->Add(MakeDialogButtons(&dialog, form.DialogButtons1), wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(10)));
  dialog.SetSizer(page);
}

}  // namespace views
