#include "views/editing/editing_views.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/panel_binders.h"
#include "views/text_binders.h"

namespace views {

void LayOut(FieldGroup& group, editing::BirthDateField& field) {
  const auto& parts = field.Fields();
  group.Row({{parts.box, 12}}, &parts.calendar);
  group.Row(nullptr, {MakeLabel(group.Box(), parts.age)});
}

void LayOut(FieldGroup& group, editing::DateField& field) {
  const auto& parts = field.Fields();
  group.Row({{parts.box, 12}}, &parts.calendar);
}

namespace {

void MakePlaceList(FormWindow& window, editing::ZIPCODE& places) {
  wxPanel* panel = MakeDropPanel(&window.Window(), places);
  auto* inside = new wxBoxSizer(wxVERTICAL);
  inside->Add(MakeListBox(panel, places.ZIPCode_Combo, {24, 3, 10}, 8), wxSizerFlags(1).Expand());
  wxPanel* commands = MakePanel(panel, places.ZipCode_Cmd_Panel);
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  for (forms::Button& button : places.ZipCode_Cmd) {
    row->Add(MakeButton(commands, button), wxSizerFlags(1).Border(wxALL, panel->FromDIP(3)));
  }
  commands->SetSizer(row);
  inside->Add(commands, wxSizerFlags().Expand());
  panel->SetSizerAndFit(inside);
}

}  // namespace

void LayOut(FieldGroup& group, editing::ZIPCODE& places) {
  const auto& parts = places.Fields();
  group.Row({{parts.city, 24}});
  group.Row({{parts.state, 4}, {parts.zip, 12}}, &parts.drop);
  auto& window = FormWindow::Of(*group.Box());
  window.OverPage([&window, &places] { MakePlaceList(window, places); });
}

void LayOut(FormDialog& dialog, editing::NameSearch& search) {
  dialog.OverPage([&dialog, &search] {
    wxPanel* panel = MakeDropPanel(&dialog, search);
    auto* inside = new wxBoxSizer(wxVERTICAL);
    inside->Add(MakeSearchList(panel, search.dbcNameSearch, 40, 4), wxSizerFlags(1).Expand());
    wxWindow* hint = MakeLabel(panel, search.lblNameSearch);
    constexpr int kLines = 2;
    hint->SetMinSize(wxSize(-1, hint->GetCharHeight() * kLines));
    inside->Add(hint, wxSizerFlags().Expand().Border(wxALL, panel->FromDIP(3)));
    panel->SetSizerAndFit(inside);
  });
}

void LayOut(FormDialog& dialog, editing::FieldHelp& help) {
  dialog.OverPage([&dialog, &help] { MakeBalloon(&dialog, help, help.Label3); });
}

}  // namespace views
