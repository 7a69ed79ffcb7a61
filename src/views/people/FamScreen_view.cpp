#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/editing/editing_views.h"
#include "views/field_group.h"
#include "views/people/FamScreen_view.h"
#include "views/people/family_views.h"
#include "views/people/person_fields_view.h"
#include "views/text_binders.h"

namespace views {
namespace {

using people::FamScreen;

wxSizer* NameGroup(FormDialog& dialog, FamScreen& form) {
  FieldGroup group(&dialog, "Name");
  group.Row({{form.Text1[form.kLastName], 26}});
  group.Row({{form.Text1[form.kFirstName], 26}});
  group.BehindBoth(MakePicture(group.Box(), form.picSwapName));
  LayOut(group, form.SexTitle);
  LayOut(group, form.BirthDate);
  group.Row({{form.Text1[form.kSsn], 14}});
  group.Row({{form.Text1[form.kLicence], 20}});
  return group.Sizer();
}

wxSizer* PhoneGroup(FormDialog& dialog, FamScreen& form) {
  FieldGroup group(&dialog, "Phones");
  LayOut(group, form.Phones);
  return group.Sizer();
}

wxSizer* AddressGroup(FormDialog& dialog, FamScreen& form) {
  FieldGroup group(&dialog, "Address");
  group.Row({{form.Text1[form.kAddress1], 26}});
  group.Row({{form.Text1[form.kAddress2], 26}});
  LayOut(group, form.ZipCodes);
  return group.Sizer();
}

wxSizer* PracticeGroup(FormDialog& dialog, FamScreen& form) {
  FieldGroup group(&dialog, "Practice");
  LayOut(group, form.Referral);
  LayOut(group, form.Provider);
  return group.Sizer();
}

wxSizer* BillingGroup(FormDialog& dialog, FamScreen& form) {
  FieldGroup group(&dialog, "Billing");
  group.Row({{form.Text1[form.kBillingTitle], 24}}, &form.Command3D1[form.kPickBillingTitle]);
  group.Row({{form.Text1[form.kAccountType], 10}});
  LayOut(group, form.NextStatement);
  wxWindow* card = MakeLabel(group.Box(), form.Label1[form.kCardType]);
  wxWindow* type = MakeTextBox(group.Box(), form.Text1[form.kCardType], 10);
  wxWindow* caption = MakeLabel(group.Box(), form.Label1[form.kCardNumber]);
  wxWindow* number = MakeTextBox(group.Box(), form.Text1[form.kCardNumber], 18);
  group.Row(card, {type});
  group.Row(caption, {number}, MakePickButton(group.Box(), form.Command3D1[form.kEditCard]));
  return group.Sizer();
}

wxSizer* FamilyGroup(FormDialog& dialog, FamScreen& form) {
  const int gap = dialog.FromDIP(8);
  auto* group = new wxStaticBoxSizer(wxVERTICAL, &dialog, "Family");
  wxWindow* box = group->GetStaticBox();
  box->SetName("group Family");
  auto* role = new wxBoxSizer(wxHORIZONTAL);
  role->Add(MakeLabel(box, form.Label2), wxSizerFlags(1).CenterVertical());
  role->Add(MakeCheckBox(box, form.chkPersonIsPatient), wxSizerFlags().CenterVertical());
  group->Add(role, wxSizerFlags().Expand().Border(wxALL, gap));
  group->Add(MakeFamilyMembers(box, form.Members), wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  return group;
}

wxSizer* Column(const FormDialog& dialog, std::initializer_list<wxSizer*> groups) {
  auto* column = new wxBoxSizer(wxVERTICAL);
  for (wxSizer* group : groups) {
    column->Add(group, wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(6)));
  }
  column->GetItem(groups.size() - 1)->SetProportion(1);
  return column;
}

}  // namespace

// One page: the person, what the practice bills to whom, the family, and below them the employers.
void LayOut_FamScreen(FormDialog& dialog, FamScreen& form) {
  auto* columns = new wxBoxSizer(wxHORIZONTAL);
  for (wxSizer* column : {Column(dialog, {NameGroup(dialog, form), PhoneGroup(dialog, form)}),
                          Column(dialog, {AddressGroup(dialog, form), BillingGroup(dialog, form)}),
                          Column(dialog, {PracticeGroup(dialog, form), FamilyGroup(dialog, form)})}) {
    columns->Add(column, wxSizerFlags().Expand());
  }
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(columns, wxSizerFlags(1).Expand().Border(wxALL, dialog.FromDIP(4)));
  page->Add(MakeEmployerSlots(dialog, form.Employers),
            wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, dialog.FromDIP(10)));
  page->Add(MakeDialogButtons(&dialog, form.DialogButtons1), wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(10)));
  LayOut(dialog, form.Name_List);
  LayOut(dialog, form.PictureBox1);
  dialog.SetSizer(page);
}

}  // namespace views
