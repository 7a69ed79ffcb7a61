#include "views/insurance/frmEditCoverage_view.h"

#include "views/insurance/ucEditCoverage_view.h"
#include "views/panel_binders.h"
#include "views/text_binders.h"

namespace views {
namespace {

wxPanel* BenefitsPanel(FormDialog& dialog, insurance::frmEditCoverage& form) {
  wxPanel* panel = MakePanel(&dialog, form.fraBenefits);
  const int gap = panel->FromDIP(6);
  auto* group = new wxStaticBoxSizer(wxVERTICAL, panel, "Benefits of the highlighted coverage");
  wxWindow* box = group->GetStaticBox();
  box->SetName("group Benefits of the highlighted coverage");
  auto* fields = new wxBoxSizer(wxHORIZONTAL);
  for (std::size_t i = 0; i < form.txtBenefit.size(); ++i) {
    constexpr int kAmountWidth = 12;
    constexpr int kYearWidth = 6;
    fields->Add(MakeCaption(box, form.lblBenefit.at(i)), wxSizerFlags().CenterVertical().Border(wxRIGHT, gap));
    fields->Add(MakeTextBox(box, form.txtBenefit.at(i), i == form.kYear ? kYearWidth : kAmountWidth),
                wxSizerFlags().CenterVertical().Border(wxRIGHT, 2 * gap));
  }
  group->Add(fields, wxSizerFlags().Border(wxALL, gap));
  panel->SetSizer(group);
  return panel;
}

}  // namespace

void LayOut_frmEditCoverage(FormDialog& dialog, insurance::frmEditCoverage& form) {
  wxSizer* page = LayOut(&dialog, form.ucEditCoverage1);
  page->Add(BenefitsPanel(dialog, form), wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(8)));
  dialog.SetSizer(page);
}

}  // namespace views
