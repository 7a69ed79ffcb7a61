#include "views/people/docScreen_view.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/editing/editing_views.h"
#include "views/field_group.h"
#include "views/grid_binder.h"
#include "views/panel_binders.h"
#include "views/people/person_fields_view.h"
#include "views/text_binders.h"

namespace views {
namespace {

using people::docScreen;

wxSizer* NameGroup(FormDialog& dialog, docScreen& form) {
  FieldGroup group(&dialog, "Name");
  group.Row({{form.Text1[form.kLastName], 30}});
  group.Row({{form.Text1[form.kFirstName], 30}});
  group.BehindBoth(MakePicture(group.Box(), form.picSwapName));
  LayOut(group, form.SexTitle);
  return group.Sizer();
}

wxSizer* PhoneGroup(FormDialog& dialog, docScreen& form) {
  FieldGroup group(&dialog, "Phones");
  LayOut(group, form.Phones);
  return group.Sizer();
}

wxSizer* AddressGroup(FormDialog& dialog, docScreen& form) {
  FieldGroup group(&dialog, "Address");
  group.Row({{form.Text1[form.kAddress1], 30}});
  group.Row({{form.Text1[form.kAddress2], 30}});
  LayOut(group, form.ZipCodes);
  return group.Sizer();
}

wxWindow* PracticePanel(FormDialog& dialog, docScreen& form) {
  wxPanel* panel = MakePanel(&dialog, form.Frame1);
  FieldGroup group(panel, "Practice");
  group.Row({{form.Text1[form.kInitials], 6}, {form.Text1[form.kFeeSchedule], 3}});
  LayOut(group, form.EmploymentDate);
  group.Below(MakeCheckBox(group.Box(), form.chkHideZEP));
  panel->SetSizer(group.Sizer());
  return panel;
}

wxWindow* EmployerPanel(FormDialog& dialog, docScreen& form) {
  wxPanel* panel = MakePanel(&dialog, form.Frame2);
  FieldGroup group(panel, "Employer");
  LayOut(group, form.Employer);
  panel->SetSizer(group.Sizer());
  return panel;
}

wxSizer* ProfessionGroup(FormDialog& dialog, docScreen& form) {
  FieldGroup group(&dialog, "Profession");
  group.Row({{form.Text1[form.kProfessionalTitle], 20}}, &form.Command2);
  group.Row({{form.Text1[form.kSpecialty], 30}}, &form.FR2_CMD_SPE);
  wxWindow* taxonomy = MakeCaption(group.Box(), *form.cboTaxonomy.Heading);
  group.Row(taxonomy, {MakeComboBox(group.Box(), form.cboTaxonomy, 30)});
  group.Row({{form.Text1[form.kLicence], 12}, {form.Text1[form.kMedicalNumber], 12}});
  group.Row({{form.Text1[form.kEmployerNumber], 12}, {form.Text1[form.kSsn], 12}});
  return group.Sizer();
}

wxSizer* NumberGroup(FormDialog& dialog, docScreen& form) {
  auto* group = new wxStaticBoxSizer(wxVERTICAL, &dialog, "Identification Numbers");
  group->GetStaticBox()->SetName("group Identification Numbers");
  group->Add(MakeGrid(group->GetStaticBox(), form.TDBG1, 4), wxSizerFlags(1).Expand().Border(wxALL, dialog.FromDIP(8)));
  return group;
}

wxSizer* RemarkGroup(FormDialog& dialog, docScreen& form) {
  FieldGroup group(&dialog, "Remarks");
  group.Row({{form.Text1[form.kRemark1], 30}});
  for (const auto line : {form.kRemark2, form.kRemark3}) {
    group.Row(nullptr, {MakeTextBox(group.Box(), form.Text1[line], 30)});
  }
  return group.Sizer();
}

}  // namespace

void LayOut_docScreen(FormDialog& dialog, docScreen& form) {
  const auto group = wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(6));
  auto* left = new wxBoxSizer(wxVERTICAL);
  left->Add(NameGroup(dialog, form), group);
  left->Add(PhoneGroup(dialog, form), group);
  left->Add(AddressGroup(dialog, form), group);
  left->Add(RemarkGroup(dialog, form), group);
  auto* right = new wxBoxSizer(wxVERTICAL);
  right->Add(PracticePanel(dialog, form), group);
  right->Add(EmployerPanel(dialog, form), group);
  right->Add(ProfessionGroup(dialog, form), group);
  right->Add(NumberGroup(dialog, form), wxSizerFlags(group).Proportion(1));
  auto* columns = new wxBoxSizer(wxHORIZONTAL);
  columns->Add(left, wxSizerFlags(1).Expand());
  columns->Add(right, wxSizerFlags(1).Expand());

  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(columns, wxSizerFlags(1).Expand().Border(wxALL, dialog.FromDIP(4)));
  page->Add(MakeDialogButtons(&dialog, form.DialogButtons1), wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(10)));
  LayOut(dialog, form.PictureBox1);
  dialog.SetSizer(page);
}

}  // namespace views
