#include "views/locations/frmOfficeLocation_view.h"

#include <wx/sizer.h>

#include <algorithm>
#include <vector>

#include "views/button_binders.h"
#include "views/editing/editing_views.h"
#include "views/field_group.h"
#include "views/grid_binder.h"
#include "views/panel_binders.h"
#include "views/text_binders.h"

namespace views {
namespace {

using locations::frmOfficeLocation;

wxSizer* AddressGroup(wxWindow* parent, frmOfficeLocation& form) {
  FieldGroup group(parent, "Name and address");
  for (const auto field : {form.kName, form.kAddress1, form.kAddress2}) {
    group.Row({{form.txtInfo[field], 30}});
  }
  LayOut(group, form.CSZ);
  return group.Sizer();
}

wxSizer* FieldsGroup(wxWindow* parent, const wxString& title, frmOfficeLocation& form, frmOfficeLocation::Field first,
                     frmOfficeLocation::Field last) {
  FieldGroup group(parent, title);
  for (std::size_t field = first; field <= last; ++field) {
    group.Row({{form.txtInfo.at(field), 24}});
  }
  return group.Sizer();
}

wxSizer* ColorGroup(wxWindow* parent, frmOfficeLocation& form) {
  constexpr int kTextWidth = 330;
  const int gap = parent->FromDIP(8);
  auto* group = new wxStaticBoxSizer(wxVERTICAL, parent, "Colours");
  wxWindow* box = group->GetStaticBox();
  box->SetName("group Colours");
  std::vector<wxButton*> buttons;
  for (std::size_t which = 0; which < form.cmdColor.size(); ++which) {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(buttons.emplace_back(MakeButton(box, form.cmdColor.at(which))));
    row->Add(MakeLabel(box, form.lblColorInfo.at(which)), wxSizerFlags().CenterVertical().Border(wxLEFT, gap));
    group->Add(row, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  }
  const int width = std::max(buttons.front()->GetBestSize().x, buttons.back()->GetBestSize().x);
  for (wxButton* button : buttons) {
    button->SetMinSize(wxSize(width, -1));
  }
  const auto filled = wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap);
  group->Add(MakeLabel(box, form.lblColor), wxSizerFlags(filled).Expand());
  group->Add(MakeWrapped(box, form.lblContrast, parent->FromDIP(kTextWidth)), filled);
  return group;
}

wxPanel* LocationPanel(FormDialog& dialog, frmOfficeLocation& form) {
  wxPanel* panel = MakePanel(&dialog, form.fraEdit);
  const auto group = wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(4));
  auto* left = new wxBoxSizer(wxVERTICAL);
  left->Add(AddressGroup(panel, form), group);
  left->Add(FieldsGroup(panel, "Phones and e-mail", form, form.kPhone, form.kEmail), group);
  auto* right = new wxBoxSizer(wxVERTICAL);
  right->Add(FieldsGroup(panel, "Identifiers", form, form.kFacility, form.kBankAccount), group);
  right->Add(ColorGroup(panel, form), group);
  auto* columns = new wxBoxSizer(wxHORIZONTAL);
  columns->Add(left, wxSizerFlags(1).Expand());
  columns->Add(right, wxSizerFlags(1).Expand());
  panel->SetSizer(columns);
  return panel;
}

}  // namespace

void LayOut_frmOfficeLocation(FormDialog& dialog, frmOfficeLocation& form) {
  const int gap = dialog.FromDIP(8);
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(MakeToolBar(&dialog, form.TB), wxSizerFlags().Expand().Border(wxALL, gap / 2));
  page->Add(MakeCaption(&dialog, form.lblLocations), wxSizerFlags().Border(wxLEFT | wxRIGHT, gap));
  page->Add(MakeGrid(&dialog, form.TDBG, 2), wxSizerFlags(1).Expand().Border(wxALL, gap));
  page->Add(LocationPanel(dialog, form), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, gap / 2));
  page->Add(MakeLabel(&dialog, form.SB), wxSizerFlags().Expand().Border(wxALL, gap));
  dialog.SetSizer(page);
}

}  // namespace views
