#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/field_group.h"
#include "views/panel_binders.h"
#include "views/people/people_views.h"
#include "views/text_binders.h"

namespace views {
namespace {

using people::patScreen_SM;

// One row's parts by the field's position.
struct Fields {
  patScreen_SM& form;
  wxWindow* box;

  wxWindow* Caption(std::size_t field) const { return MakeCaption(box, form.Label1.at(field)); }
  wxWindow* Text(std::size_t field, int characters) const { return MakeTextBox(box, form.Text1.at(field), characters); }
  wxWindow* Pick(std::size_t button) const { return MakePickButton(box, form.Command3D1.at(button)); }
};

wxSizer* NameGroup(FormDialog& dialog, patScreen_SM& form) {
  FieldGroup group(&dialog, "Name");
  const Fields make{form, group.Box()};
  const auto row = [&](std::size_t field, int characters) {
    wxWindow* caption = make.Caption(field);
    group.Row(caption, {make.Text(field, characters)});
  };
  row(form.kLastName, 36);
  row(form.kFirstName, 36);
  group.BehindBoth(MakePicture(group.Box(), form.picSwapName));
  wxWindow* sex = make.Caption(form.kSex);
  wxWindow* sex_text = make.Text(form.kSex, 3);
  wxWindow* title = make.Caption(form.kTitle);
  wxWindow* title_text = make.Text(form.kTitle, 8);
  group.Row(sex, {sex_text, title, title_text}, make.Pick(form.kPickSexTitle));
  wxWindow* birth = make.Caption(form.kBirthDate);
  wxWindow* birth_text = make.Text(form.kBirthDate, 12);
  group.Row(birth, {birth_text}, make.Pick(form.kPickBirthDate));
  group.Row(nullptr, {MakeLabel(group.Box(), form.Label5[form.kAgeText])});
  row(form.kSsn, 14);
  return group.Sizer();
}

wxSizer* AddressGroup(FormDialog& dialog, patScreen_SM& form) {
  FieldGroup group(&dialog, "Address");
  const Fields make{form, group.Box()};
  for (const std::size_t field : {form.kAddress1, form.kAddress2}) {
    wxWindow* caption = make.Caption(field);
    group.Row(caption, {make.Text(field, 30)});
  }
  wxWindow* city = make.Caption(form.kCity);
  group.Row(city, {make.Text(form.kCity, 24)});
  wxWindow* state = make.Caption(form.kState);
  wxWindow* state_text = make.Text(form.kState, 4);
  wxWindow* zip = make.Caption(form.kZip);
  wxWindow* zip_text = make.Text(form.kZip, 12);
  group.Row(state, {state_text, zip, zip_text}, MakePickButton(group.Box(), form.Command3D2));
  return group.Sizer();
}

wxSizer* PhoneGroup(FormDialog& dialog, patScreen_SM& form) {
  FieldGroup group(&dialog, "Phones");
  const Fields make{form, group.Box()};
  for (const std::size_t field : {form.kHomePhone, form.kWorkPhone}) {
    wxWindow* caption = make.Caption(field);
    group.Row(caption, {make.Text(field, 24)});
  }
  group.Below(MakeButton(group.Box(), form.cmdContact));
  return group.Sizer();
}

wxSizer* PracticeGroup(FormDialog& dialog, patScreen_SM& form) {
  FieldGroup group(&dialog, "Practice");
  const Fields make{form, group.Box()};
  const auto row = [&](std::size_t field, std::size_t button) {
    wxWindow* caption = make.Caption(field);
    wxWindow* text = make.Text(field, 28);
    group.Row(caption, {text}, make.Pick(button));
  };
  row(form.kReferral, form.kPickReferral);
  row(form.kProvider, form.kPickProvider);
  row(form.kMedicalAlert, form.kPickMedicalAlert);
  wxWindow* schedule = MakeLabel(group.Box(), form.Label5[form.kFeeScheduleText]);
  group.Row(nullptr, {schedule}, make.Pick(form.kPickFeeSchedule));
  return group.Sizer();
}

wxPanel* HelpBalloon(FormDialog& dialog, patScreen_SM& form) {
  wxPanel* balloon = MakePanel(&dialog, form.PictureBox1);
  balloon->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_INFOBK));
  auto* text = MakeLabel(balloon, form.Label3);
  text->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_INFOTEXT));
  auto* inside = new wxBoxSizer(wxVERTICAL);
  inside->Add(text, wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(6)));
  balloon->SetSizer(inside);
  return balloon;
}

// The list of names drops below the referral or the provider, whichever is searched.
void MakeNameList(FormDialog& dialog, patScreen_SM& form) {
  wxPanel* panel = MakeDropPanel(&dialog, form.Name_List, [&form]() -> const forms::Control& {
    return form.Text1.at(form.Name_List.Tag == "Provider" ? form.kProvider : form.kReferral);
  });
  auto* inside = new wxBoxSizer(wxVERTICAL);
  inside->Add(MakeSearchList(panel, form.dbcNameSearch, 34, 6), wxSizerFlags(1).Expand());
  panel->SetSizerAndFit(inside);
}

// The list of places drops below the city or the ZIP code.
void MakePlaceList(FormDialog& dialog, patScreen_SM& form) {
  wxPanel* panel = MakeDropPanel(&dialog, form.ZipCodes.ZipCode_Panel, [&form]() -> const forms::Control& {
    return form.Text1.at(form.ZipCodes.ZipCode_Panel.Tag == "CITY" ? form.kCity : form.kZip);
  });
  auto* inside = new wxBoxSizer(wxVERTICAL);
  inside->Add(MakeListBox(panel, form.ZipCodes.ZIPCode_Combo, {24, 3, 10}, 8), wxSizerFlags(1).Expand());
  wxPanel* commands = MakePanel(panel, form.ZipCodes.ZipCode_Cmd_Panel);
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  for (forms::Button& button : form.ZipCodes.ZipCode_Cmd) {
    row->Add(MakeButton(commands, button), wxSizerFlags(1).Border(wxALL, dialog.FromDIP(3)));
  }
  commands->SetSizer(row);
  inside->Add(commands, wxSizerFlags().Expand());
  panel->SetSizerAndFit(inside);
}

}  // namespace

void LayOut_patScreen_SM(FormDialog& dialog, patScreen_SM& form) {
  const auto group = wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(6));
  auto* left = new wxBoxSizer(wxVERTICAL);
  left->Add(NameGroup(dialog, form), group);
  left->Add(PhoneGroup(dialog, form), group);
  auto* right = new wxBoxSizer(wxVERTICAL);
  right->Add(AddressGroup(dialog, form), group);
  right->Add(PracticeGroup(dialog, form), group);
  auto* columns = new wxBoxSizer(wxHORIZONTAL);
  columns->Add(left, wxSizerFlags(1).Expand());
  columns->Add(right, wxSizerFlags(1).Expand());

  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(columns, wxSizerFlags(1).Expand().Border(wxALL, dialog.FromDIP(4)));
  page->Add(HelpBalloon(dialog, form), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, dialog.FromDIP(10)));
  page->Add(MakeDialogButtons(&dialog, form.DialogButtons1), wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(10)));
  MakeNameList(dialog, form);
  MakePlaceList(dialog, form);
  dialog.SetSizer(page);
}

}  // namespace views
