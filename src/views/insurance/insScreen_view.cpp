#include "views/insurance/insScreen_view.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/editing/editing_views.h"
#include "views/field_group.h"
#include "views/panel_binders.h"
#include "views/text_binders.h"

namespace views {
namespace {

using insurance::insScreen;

wxSizer* Heading(FormDialog& dialog, insScreen& form) {
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  wxStaticText* heading = MakeLabel(&dialog, form.lblHeading);
  heading->SetFont(heading->GetFont().Bold());
  row->Add(heading, wxSizerFlags().CenterVertical());
  row->AddStretchSpacer();
  row->Add(MakeLabel(&dialog, form.lblID), wxSizerFlags().CenterVertical());
  return row;
}

wxSizer* AddressGroup(FormDialog& dialog, insScreen& form) {
  FieldGroup group(&dialog, "Name and address");
  for (const auto field : {form.kName, form.kAddress1, form.kAddress2}) {
    group.Row({{form.Text1[field], 34}});
  }
  LayOut(group, form.ZipCodes);
  return group.Sizer();
}

wxSizer* FieldsGroup(FormDialog& dialog, const wxString& title, insScreen& form,
                     std::initializer_list<insScreen::Field> fields) {
  FieldGroup group(&dialog, title);
  for (const auto field : fields) {
    group.Row({{form.Text1[field], 34}});
  }
  return group.Sizer();
}

wxWindow* ClaimsPanel(FormDialog& dialog, insScreen& form) {
  constexpr int kTextWidth = 250;
  wxPanel* panel = MakePanel(&dialog, form.fraClaims);
  FieldGroup group(panel, "Claims");
  group.Row({{form.Text1[form.kPrefix], 10}});
  group.Row({{form.Text1[form.kAccount], 20}});
  group.Row({{form.Text1[form.kSwitchCharacter], 6}});
  const auto linked = [&](forms::TextBox& box, int characters, forms::Button& button) {
    wxWindow* caption = MakeCaption(group.Box(), *box.Heading);
    wxWindow* field = MakeTextBox(group.Box(), box, characters);
    group.Row(caption, {field}, MakeButton(group.Box(), button));
  };
  linked(form.txtNEA, 30, form.cmdLin);
  linked(form.txtRemID, 10, form.cmdUnLin);
  wxPanel* explanation = MakePanel(group.Box(), form.picAnsExplain);
  auto* inside = new wxBoxSizer(wxVERTICAL);
  inside->Add(MakeWrapped(explanation, form.LblAnsExplain, panel->FromDIP(kTextWidth)));
  explanation->SetSizer(inside);
  group.Row(nullptr, {explanation});
  panel->SetSizer(group.Sizer());
  return panel;
}

}  // namespace

void LayOut_insScreen(FormDialog& dialog, insScreen& form) {
  const int gap = dialog.FromDIP(4);
  const auto group = wxSizerFlags().Expand().Border(wxALL, gap);
  auto* left = new wxBoxSizer(wxVERTICAL);
  left->Add(AddressGroup(dialog, form), group);
  left->Add(FieldsGroup(dialog, "Phones and e-mail", form, {form.kPhone1, form.kPhone2, form.kFax, form.kEmail}),
            group);
  left->Add(FieldsGroup(dialog, "Remarks", form, {form.kRemark1, form.kRemark2}), group);
  auto* columns = new wxBoxSizer(wxHORIZONTAL);
  columns->Add(left, wxSizerFlags(1).Expand());
  columns->Add(ClaimsPanel(dialog, form), wxSizerFlags(1).Expand().Border(wxALL, gap));

  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(Heading(dialog, form), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, dialog.FromDIP(10)));
  page->Add(columns, wxSizerFlags(1).Expand().Border(wxALL, gap));
  page->Add(MakeDialogButtons(&dialog, form.Command3D2), wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(10)));
  dialog.SetSizer(page);
}

}  // namespace views
