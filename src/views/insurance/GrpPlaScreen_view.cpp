#include "views/insurance/GrpPlaScreen_view.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/field_group.h"
#include "views/panel_binders.h"
#include "views/text_binders.h"

namespace views {
namespace {

using insurance::GrpPlaScreen;

// What changes while one works has room for its longest text: what lies below it stays in its place.
wxStaticText* MakeNote(wxWindow* parent, forms::Label& control, int characters, int lines) {
  wxStaticText* note = MakeWrapped(parent, control, FieldWidth(*parent, characters));
  note->SetMinSize(wxSize(FieldWidth(*parent, characters), lines * note->GetCharHeight()));
  return note;
}

wxSizer* PlanGroup(FormDialog& dialog, GrpPlaScreen& form) {
  FieldGroup group(&dialog, "Plan");
  group.Row({{form.Text1[form.kCarrier], 30}}, &form.cmdInsCo);
  group.Below(MakeButton(group.Box(), form.cmdRemIns));
  group.Below(MakeNote(group.Box(), form.Label2, 40, 4));
  group.Row({{form.Text1[form.kGroupNumber], 20}});
  group.Row({{form.Text1[form.kPlanName], 30}});
  wxWindow* type = MakeCaption(group.Box(), form.lblPlanType);
  wxWindow* types = MakeComboBox(group.Box(), form.cboPlanType, 13);
  wxWindow* renewal = MakeCaption(group.Box(), form.Label1[form.kRenewal]);
  group.Row(type, {types, renewal, MakeTextBox(group.Box(), form.Text1[form.kRenewal], 7)});
  return group.Sizer();
}

// Two fields in a row, one below the other.
wxSizer* LimitGroup(FormDialog& dialog, GrpPlaScreen& form) {
  constexpr int kInARow = 4;
  auto* group = new wxStaticBoxSizer(wxVERTICAL, &dialog, "Limits");
  wxWindow* box = group->GetStaticBox();
  box->SetName("group Limits");
  auto* fields = new wxFlexGridSizer(kInARow, dialog.FromDIP(wxSize(8, 6)));
  fields->AddGrowableCol(1);
  fields->AddGrowableCol(3);
  for (const auto field : {form.kMaximum1, form.kDeductible1, form.kMaximum2, form.kDeductible2, form.kMaximum3,
                           form.kMaximum4, form.kChildrenUntil, form.kStudentsUntil}) {
    fields->Add(MakeCaption(box, *form.Text1[field].Heading), wxSizerFlags().CenterVertical());
    fields->Add(MakeTextBox(box, form.Text1[field], 11), wxSizerFlags().Expand());
  }
  auto* applied = new wxBoxSizer(wxHORIZONTAL);
  const auto beside = wxSizerFlags().CenterVertical().Border(wxRIGHT, dialog.FromDIP(8));
  applied->Add(MakeLabel(box, form.lblDedOption), beside);
  for (forms::CheckBox& option : form.chkDedOption) {
    applied->Add(MakeCheckBox(box, option), beside);
  }
  group->Add(fields, wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(8)));
  group->Add(applied, wxSizerFlags().Border(wxALL, dialog.FromDIP(8)));
  return group;
}

wxSizer* ClaimGroup(FormDialog& dialog, GrpPlaScreen& form) {
  FieldGroup group(&dialog, "Claims");
  wxWindow* box = group.Box();
  wxWindow* type = MakeCaption(box, form.Label1[form.kClaimForm]);
  group.Row(type, {MakeComboBox(box, form.cboFormType, 16)});
  wxWindow* payment = MakeCaption(box, form.Label1[form.kPayment]);
  wxWindow* paid = MakeTextBox(box, form.Text1[form.kPayment], 3);
  group.Row(payment, {paid, MakeLabel(box, form.Label3)});
  wxWindow* required = MakeCaption(box, form.Label1[form.kPreAuthorization]);
  wxWindow* flag = MakeTextBox(box, form.Text1[form.kPreAuthorization], 3);
  group.Row(required, {flag, MakeLabel(box, form.Label4)});
  wxWindow* fees = MakeLabel(box, form.lblClaimFees);
  wxWindow* first = MakeOption(box, form.optClaimFees[0], true);
  group.Row(fees, {first, MakeOption(box, form.optClaimFees[1], false)});
  group.Below(MakeLabel(box, form.lblSubmitOfficeFees));
  wxWindow* payments = MakeLabel(box, form.lblUseOfficeFees);
  group.Row(payments, {MakeCheckBox(box, form.chkUseOfficeFees)});
  return group.Sizer();
}

wxWindow* BenefitsPanel(FormDialog& dialog, GrpPlaScreen& form) {
  wxPanel* panel = MakePanel(&dialog, form.picInsCOB);
  FieldGroup group(panel, "Coordination of Benefits");
  group.Row(nullptr, {MakeLabel(group.Box(), form.lblCoordOfBenefits)});
  for (forms::OptionButton& option : form.optInsCOB) {
    group.Row(nullptr, {MakeOption(group.Box(), option, &option == &form.optInsCOB.front())});
  }
  group.Below(MakeNote(group.Box(), form.lblInsCOB, 44, 2));
  panel->SetSizer(group.Sizer());
  return panel;
}

wxSizer* RemarkGroup(FormDialog& dialog, GrpPlaScreen& form) {
  FieldGroup group(&dialog, "Remarks");
  group.Row({{form.Text1[form.kRemark1], 30}});
  group.Row({{form.Text1[form.kRemark2], 30}});
  return group.Sizer();
}

}  // namespace

void LayOut_GrpPlaScreen(FormDialog& dialog, GrpPlaScreen& form) {
  const auto group = wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(6));
  auto* left = new wxBoxSizer(wxVERTICAL);
  left->Add(PlanGroup(dialog, form), group);
  left->Add(LimitGroup(dialog, form), group);
  auto* right = new wxBoxSizer(wxVERTICAL);
  right->Add(ClaimGroup(dialog, form), group);
  right->Add(BenefitsPanel(dialog, form), group);
  right->Add(RemarkGroup(dialog, form), group);
  auto* columns = new wxBoxSizer(wxHORIZONTAL);
  columns->Add(left, wxSizerFlags(1).Expand());
  columns->Add(right, wxSizerFlags(1).Expand());

  auto* foot = new wxBoxSizer(wxHORIZONTAL);
  foot->Add(MakeButton(&dialog, form.InsPln_Cmd), wxSizerFlags().CenterVertical());
  foot->Add(MakeDialogButtons(&dialog, form.DialogButtons1), wxSizerFlags(1).CenterVertical());
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(columns, wxSizerFlags(1).Expand().Border(wxALL, dialog.FromDIP(4)));
  page->Add(foot, wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(10)));
  dialog.SetSizer(page);
}

}  // namespace views
