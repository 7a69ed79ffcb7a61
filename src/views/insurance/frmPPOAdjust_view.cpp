#include "views/insurance/frmPPOAdjust_view.h"

#include <wx/sizer.h>

#include <initializer_list>

#include "views/button_binders.h"
#include "views/field_group.h"
#include "views/panel_binders.h"
#include "views/text_binders.h"

namespace views {
namespace {

using insurance::frmPPOAdjust;

constexpr int kAmountWidth = 14;  // characters

wxSizer* PlanGroup(FormDialog& dialog, frmPPOAdjust& form) {
  constexpr int kNameWidth = 30;
  FieldGroup group(&dialog, "Insurance Plan");
  const auto row = [&](frmPPOAdjust::Detail detail, forms::PictureBox& icon) {
    wxWindow* caption = MakeCaption(group.Box(), form.lblDetails.at(detail));
    wxWindow* field = MakeTextBox(group.Box(), form.txtDetails.at(detail), kNameWidth);
    group.Row(caption, {field}, MakePicture(group.Box(), icon));
  };
  row(form.kEmployer, form.ImaEditEmp);
  row(form.kCarrier, form.ImaEditInsCo);
  row(form.kGroupNumber, form.ImaEditPlan);
  group.Row({{form.txtDetails[form.kServiceCode], kNameWidth}});
  return group.Sizer();
}

wxSizer* AmountGroup(FormDialog& dialog, frmPPOAdjust& form, const wxString& title,
                     std::initializer_list<frmPPOAdjust::Detail> details) {
  FieldGroup group(&dialog, title);
  for (const auto detail : details) {
    group.Row({{form.txtDetails.at(detail), kAmountWidth}});
  }
  return group.Sizer();
}

wxWindow* HelpPanel(FormDialog& dialog, frmPPOAdjust& form) {
  constexpr int kTextWidth = 280;
  wxPanel* panel = MakePanel(&dialog, form.picHelp);
  auto* box = new wxStaticBoxSizer(wxVERTICAL, panel, "Help");
  box->GetStaticBox()->SetName("group Help");
  const auto line = wxSizerFlags().Border(wxALL, dialog.FromDIP(6));
  wxStaticText* title = MakeLabel(box->GetStaticBox(), form.lblInfoTitle);
  title->SetFont(title->GetFont().Bold());
  box->Add(title, line);
  box->Add(MakeWrapped(box->GetStaticBox(), form.lblInfoText, dialog.FromDIP(kTextWidth)), line);
  panel->SetSizer(box);
  return panel;
}

}  // namespace

void LayOut_frmPPOAdjust(FormDialog& dialog, frmPPOAdjust& form) {
  const int gap = dialog.FromDIP(6);
  const auto group = wxSizerFlags().Expand().Border(wxALL, gap);
  auto* left = new wxBoxSizer(wxVERTICAL);
  left->Add(PlanGroup(dialog, form), group);
  left->Add(AmountGroup(dialog, form, "Fees",
                        {form.kOfficeFee, form.kAllowedFee, form.kPlanCalculationFee, form.kCoveragePercent}),
            group);
  auto* right = new wxBoxSizer(wxVERTICAL);
  right->Add(AmountGroup(dialog, form, "Split", {form.kPlanPayment, form.kProviderAdjustment, form.kPatientPortion}),
             group);
  right->Add(HelpPanel(dialog, form), wxSizerFlags(group).Proportion(1));
  auto* columns = new wxBoxSizer(wxHORIZONTAL);
  columns->Add(left, wxSizerFlags(1).Expand());
  columns->Add(right, wxSizerFlags().Expand());

  auto* buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->AddStretchSpacer();
  buttons->Add(MakeButton(&dialog, form.cmdOK), wxSizerFlags().Border(wxLEFT, gap));
  buttons->Add(MakeButton(&dialog, form.cmdClose), wxSizerFlags().Border(wxLEFT, gap));

  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(columns, wxSizerFlags(1).Expand().Border(wxALL, dialog.FromDIP(4)));
  page->Add(buttons, wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(10)));
  dialog.SetSizer(page);
}

}  // namespace views
