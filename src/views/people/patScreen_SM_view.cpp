#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/editing/editing_views.h"
#include "views/field_group.h"
#include "views/people/patScreen_SM_view.h"
#include "views/people/person_fields_view.h"
#include "views/text_binders.h"

namespace views {
namespace {

using people::patScreen_SM;

wxSizer* NameGroup(FormDialog& dialog, patScreen_SM& form) {
  FieldGroup group(&dialog, "Name");
  group.Row({{form.Text1[form.kLastName], 36}});
  group.Row({{form.Text1[form.kFirstName], 36}});
  group.BehindBoth(MakePicture(group.Box(), form.picSwapName));
  LayOut(group, form.SexTitle);
  LayOut(group, form.BirthDate);
  group.Row({{form.Text1[form.kSsn], 14}});
  return group.Sizer();
}

wxSizer* PhoneGroup(FormDialog& dialog, patScreen_SM& form) {
  FieldGroup group(&dialog, "Phones");
  LayOut(group, form.Phones);
  return group.Sizer();
}

wxSizer* AddressGroup(FormDialog& dialog, patScreen_SM& form) {
  FieldGroup group(&dialog, "Address");
  group.Row({{form.Text1[form.kAddress1], 30}});
  group.Row({{form.Text1[form.kAddress2], 30}});
  LayOut(group, form.ZipCodes);
  return group.Sizer();
}

wxSizer* PracticeGroup(FormDialog& dialog, patScreen_SM& form) {
  FieldGroup group(&dialog, "Practice");
  LayOut(group, form.Referral);
  group.Row(nullptr, {MakeCaption(group.Box(), form.Label5[form.kSecondReferralText])});
  LayOut(group, form.Provider);
  group.Row({{form.Text1[form.kMedicalAlert], 28}}, &form.Command3D1[form.kPickMedicalAlert]);
  wxWindow* schedule = MakeCaption(group.Box(), form.Label5[form.kFeeScheduleText]);
  group.Row(nullptr, {schedule}, MakePickButton(group.Box(), form.Command3D1[form.kPickFeeSchedule]));
  return group.Sizer();
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
  page->Add(MakeDialogButtons(&dialog, form.DialogButtons1), wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(10)));
  LayOut(dialog, form.Name_List);
  LayOut(dialog, form.PictureBox1);
  dialog.SetSizer(page);
}

}  // namespace views
