#include "views/insurance/ucEditCoverage_view.h"

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/grid_binder.h"
#include "views/panel_binders.h"
#include "views/text_binders.h"

namespace views {
namespace {

wxPanel* LinkPanel(wxWindow* parent, insurance::CoverageLink& link) {
  wxPanel* panel = MakePanel(parent, link);
  const int gap = panel->FromDIP(6);
  auto* group = new wxStaticBoxSizer(wxVERTICAL, panel, "Link additional insurance plan");
  wxWindow* box = group->GetStaticBox();
  box->SetName("group Link additional insurance plan");
  auto* fields = new wxFlexGridSizer(4, gap, gap);
  const auto add = [&](forms::Label& caption, forms::ComboBox& combo, int characters) {
    fields->Add(MakeCaption(box, caption), wxSizerFlags().CenterVertical());
    fields->Add(MakeComboBox(box, combo, characters), wxSizerFlags().Expand());
  };
  add(link.lblHolder, link.cboHolder, 24);
  add(link.lblPlan, link.cboPlan, 36);
  add(link.lblRel, link.cboRel, 24);
  fields->AddGrowableCol(1, 1);
  fields->AddGrowableCol(3, 2);
  auto* buttons = new wxBoxSizer(wxHORIZONTAL);
  for (forms::Button* button : {&link.cmdAdd, &link.cmdNew, &link.cmdCancel}) {
    buttons->Add(MakeButton(box, *button), wxSizerFlags().Border(wxRIGHT, gap));
  }
  fields->AddSpacer(0);
  fields->Add(buttons, wxSizerFlags().CenterVertical());
  group->Add(fields, wxSizerFlags().Expand().Border(wxALL, gap));
  panel->SetSizer(group);
  return panel;
}

}  // namespace

wxSizer* LayOut(wxWindow* parent, insurance::ucEditCoverage& coverages) {
  const int gap = parent->FromDIP(8);
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(MakeToolBar(parent, coverages.TB), wxSizerFlags().Expand().Border(wxALL, gap / 2));
  page->Add(MakeLabel(parent, coverages.lblCaption), wxSizerFlags().Border(wxLEFT | wxRIGHT, gap));
  page->Add(MakeGrid(parent, coverages.TDBG, 3), wxSizerFlags(1).Expand().Border(wxALL, gap));
  page->Add(LinkPanel(parent, coverages.Link), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, gap));
  return page;
}

}  // namespace views
