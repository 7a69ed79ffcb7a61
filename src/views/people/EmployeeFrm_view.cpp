#include "views/people/EmployeeFrm_view.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/editing/editing_views.h"
#include "views/field_group.h"
#include "views/panel_binders.h"
#include "views/people/payroll_status_view.h"
#include "views/people/person_fields_view.h"
#include "views/tab_binders.h"
#include "views/text_binders.h"

namespace views {
namespace {

using people::EmployeeFrm;

wxSizer* NameGroup(wxWindow* page, EmployeeFrm& form) {
  FieldGroup group(page, "Name");
  group.Row({{form.Gen_Txt[form.kLastName], 30}});
  group.Row({{form.Gen_Txt[form.kFirstName], 30}});
  group.BehindBoth(MakePicture(group.Box(), form.picSwapName));
  LayOut(group, form.SexTitle);
  LayOut(group, form.BirthDate);
  group.Row({{form.Gen_Txt[form.kSsn], 14}});
  group.Row({{form.Gen_Txt[form.kEin], 15}});
  group.Row({{form.Gen_Txt[form.kProfessionalTitle], 20}}, &form.Gen_CMD[form.kPickProfessionalTitle]);
  group.Row({{form.Gen_Txt[form.kInitials], 6}}, &form.Gen_CMD[form.kChooseInitials]);
  return group.Sizer();
}

wxWindow* EmploymentCommands(wxWindow* parent, EmployeeFrm& form) {
  wxPanel* panel = MakePanel(parent, form.Pic_CMD);
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  for (const EmployeeFrm::Command command : {form.kTerminate, form.kReactivate, form.kDelete}) {
    row->Add(MakeButton(panel, form.Gen_CMD.at(command)), wxSizerFlags().Border(wxRIGHT, panel->FromDIP(6)));
  }
  panel->SetSizerAndFit(row);
  return panel;
}

wxSizer* EmploymentGroup(wxWindow* page, EmployeeFrm& form) {
  FieldGroup group(page, "Employment");
  group.Row(nullptr, {MakeLabel(group.Box(), form.Label2)});
  group.Row({{form.Gen_Txt[form.kEmployed], 12}}, &form.Gen_CMD[form.kPickEmployed]);
  group.Row({{form.Gen_Txt[form.kTerminated], 12}});
  group.Below(MakeCheckBox(group.Box(), form.chkHideZEP));
  group.Below(EmploymentCommands(group.Box(), form));
  return group.Sizer();
}

wxSizer* AddressGroup(wxWindow* page, EmployeeFrm& form) {
  FieldGroup group(page, "Address");
  group.Row({{form.Gen_Txt[form.kAddress1], 30}});
  group.Row({{form.Gen_Txt[form.kAddress2], 30}});
  LayOut(group, form.ZipCode1);
  return group.Sizer();
}

wxSizer* PhoneGroup(wxWindow* page, EmployeeFrm& form) {
  FieldGroup group(page, "Phones");
  group.Row({{form.Gen_Txt[form.kPhone], 24}});
  group.Row({{form.Gen_Txt[form.kFax], 24}});
  group.Row({{form.Gen_Txt[form.kEmail], 24}});
  return group.Sizer();
}

void LayOutGeneral(wxPanel* page, EmployeeFrm& form) {
  const auto group = wxSizerFlags().Expand().Border(wxALL, page->FromDIP(6));
  auto* left = new wxBoxSizer(wxVERTICAL);
  left->Add(NameGroup(page, form), group);
  left->Add(PhoneGroup(page, form), group);
  auto* right = new wxBoxSizer(wxVERTICAL);
  right->Add(AddressGroup(page, form), group);
  right->Add(EmploymentGroup(page, form), group);
  auto* columns = new wxBoxSizer(wxHORIZONTAL);
  columns->Add(left, wxSizerFlags(1).Expand());
  columns->Add(right, wxSizerFlags(1).Expand());
  page->SetSizer(columns);
}

wxSizer* LoginGroup(wxWindow* page, EmployeeFrm& form) {
  FieldGroup group(page, "Login");
  group.Row({{form.Gen_Txt[form.kLoginName], 24}});
  wxWindow* password = MakeButton(group.Box(), form.Gen_CMD[form.kPassword]);
  group.Row(nullptr, {password, MakeLabel(group.Box(), form.Label[form.kPasswordState])});
  return group.Sizer();
}

void LayOutLogin(wxPanel* page, EmployeeFrm& form) {
  auto* content = new wxBoxSizer(wxVERTICAL);
  content->Add(LoginGroup(page, form), wxSizerFlags().Expand().Border(wxALL, page->FromDIP(6)));
  content->Add(MakeLoginRights(page, form.Rights), wxSizerFlags(1).Expand().Border(wxALL, page->FromDIP(6)));
  page->SetSizer(content);
}

}  // namespace

void LayOut_EmployeeFrm(FormDialog& dialog, EmployeeFrm& form) {
  auto* content = new wxBoxSizer(wxVERTICAL);
  content->Add(MakeLocationChoice(&dialog, form.Locations),
               wxSizerFlags().ReserveSpaceEvenIfHidden().Border(wxLEFT | wxRIGHT | wxTOP, dialog.FromDIP(10)));
  wxNotebook* book = MakeTabs(&dialog, form.TabEBInfo);
  LayOutGeneral(PageOf(book, form.Frame[form.kGeneral]), form);
  wxPanel* payroll = PageOf(book, form.Frame[form.kPayrollStatus]);
  payroll->SetSizer(MakePayrollStatus(payroll, form.Payroll));
  LayOutLogin(PageOf(book, form.Frame[form.kLogin]), form);

  content->Add(book, wxSizerFlags(1).Expand().Border(wxALL, dialog.FromDIP(10)));
  content->Add(MakeDialogButtons(&dialog, form.DialogButtons1),
               wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, dialog.FromDIP(10)));
  LayOut(dialog, form.PictureBox1);
  dialog.SetSizer(content);
}

}  // namespace views
