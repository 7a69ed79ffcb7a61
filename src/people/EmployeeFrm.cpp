#include "people/EmployeeFrm.h"

#include "data/literal.h"
#include "editing/customary_form.h"
#include "forms/phone.h"
#include "forms/text.h"
#include "forms/us_numbers.h"

namespace people {
namespace {

using data::Words;

struct BoundField {
  EmployeeFrm::Field field;
  Words column;
  const data::Format& format = data::kPlain;
};
constexpr std::array kColumns = {BoundField{EmployeeFrm::kLastName, "pLasNam"},
                                 BoundField{EmployeeFrm::kFirstName, "pFirNam"},
                                 BoundField{EmployeeFrm::kSex, "pSex"},
                                 BoundField{EmployeeFrm::kTitle, "pTTL"},
                                 BoundField{EmployeeFrm::kProfessionalTitle, "pProTTL"},
                                 BoundField{EmployeeFrm::kAddress1, "pAdd1"},
                                 BoundField{EmployeeFrm::kAddress2, "pAdd2"},
                                 BoundField{EmployeeFrm::kCity, "pCIT"},
                                 BoundField{EmployeeFrm::kState, "pSta"},
                                 BoundField{EmployeeFrm::kZip, "pZIP"},
                                 BoundField{EmployeeFrm::kPhone, "pHOMPHO"},
                                 BoundField{EmployeeFrm::kFax, "pHomFax"},
                                 BoundField{EmployeeFrm::kEmail, "pHomEma"},
                                 BoundField{EmployeeFrm::kSsn, "pSSN"},
                                 BoundField{EmployeeFrm::kEin, "pDOCEIN"},
                                 BoundField{EmployeeFrm::kEmployed, "pDOCDATEMP", data::kDate},
                                 BoundField{EmployeeFrm::kTerminated, "pDatRel", data::kDate},
                                 BoundField{EmployeeFrm::kInitials, "pDocIni"}};

bool IsSet(const session::Value& flag) {
  return session::ToText(flag) >= "1";
}

}  // namespace

EmployeeFrm::EmployeeFrm(const session::ScreenContext& context)
    : EditingForm("EmployeeFrm", context),
      Employee(context.session, "paTable", "pID"),
      BirthDate(context, {Gen_Txt[kBirthDate], Gen_CMD[kPickBirthDate], Label, Label2}),
      EmploymentDate(context, {Gen_Txt[kEmployed], Gen_CMD[kPickEmployed]}),
      SexTitle(context, {Gen_Txt[kSex], Gen_Txt[kTitle], Gen_CMD[kPickSexTitle]}, "this employee's"),
      ZipCode1(context, {Gen_Txt[kCity], Gen_Txt[kState], Gen_Txt[kZip], Gen_CMD[kPickPlace]}),
      PictureBox1(context),
      contacts_(context.session),
      duplicate_(context),
      initials_(context, Gen_Txt[kInitials], Initials::Asks::Employee) {
  for (const BoundField& bound : kColumns) {
    Employee.Bind(Gen_Txt.at(bound.field), bound.column, bound.format);
  }
  Employee.Bind(Label, "pBirDat");
  Employee.Bind(lblTypEmp, "pTypEmp");
  Employee.Bind(chkHideZEP, "pHidZEP");
  Register();
  SetHelp();
  Wire();
}

void EmployeeFrm::Wire() {
  const auto customary = [this](Field field, std::string (*format)(std::string_view)) {
    Gen_Txt.at(field).Leave = [this, field, format] {
      editing::TakeCustomaryForm(context_.session, Gen_Txt.at(field), format);
    };
  };
  customary(kSsn, forms::FormatSsn);
  customary(kZip, forms::FormatZip);
  customary(kPhone, forms::FormatPhone);
  customary(kFax, forms::FormatPhone);
  const auto picks = [this](Field field, Command command, const std::function<void()>& pick) {
    Gen_Txt.at(field).KeyDown = [pick](forms::Key key) {
      if (key == forms::Key::F9) {
        pick();
      }
      return key == forms::Key::F9;
    };
    Gen_CMD.at(command).Click = [this, field, pick] {
      pick();
      Gen_Txt.at(field).SetFocus();
    };
  };
  picks(kProfessionalTitle, kPickProfessionalTitle, [this] { PickProfessionalTitle(); });
  picks(kInitials, kChooseInitials, [this] { Set_DocIni(); });
  // The text is to the letter: the button has a mnemonic of its own.
  Gen_Txt[kTerminated].ReadOnly = true;
  Gen_Txt[kTerminated].KeyPress = [this](char32_t) {
    Tell("To enter a termination date, please click the 'Terminate' button");
    return char32_t{0};
  };
  picSwapName.Click = [this] { picSwapName_Click(); };
  DialogButtons1.OK.Click = [this] { SaveAndClose(); };
  DialogButtons1.Extra.Click = [this] { Apply(); };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
  DialogButtons1.Help.Click = [this] { PictureBox1.Show(); };

  Edits(Employee);
  const auto always = [] { return true; };
  const auto adding = [this] { return Adding(); };
  OnSave(adding, [this] { Insert(); });
  OnSave(adding, [this] { Hold("PATABLE", pID); });
  OnSave(always, [this] { Employee.Update(); });
  OnSave(always, [this] { context_.session.RecordHandOff("pID", "PaTable", pID); });
}

void EmployeeFrm::Load_Information() {
  Caption = Opened.IsNew() ? "New Employee Information" : "Employee Information";
  Set_EmployeeFrm_Rights();
  if (Opened.IsNew()) {
    if (!MayModify()) {
      Close();
      return;
    }
    Init_Bound_Data();
  } else {
    pID = Opened.id;
    if (!ReadOnly() && pID != 0) {
      Hold("PATABLE", pID);
    }
    if (pID == 0 || !Employee.Read(pID)) {
      Tell("Employee " + std::to_string(pID) + " was not found in the database.", forms::Icon::Information);
      Close();
      return;
    }
    if (Opened.joins && !IsSet(session::Value(lblTypEmp.Caption.get()))) {
      lblTypEmp.Caption = "1";
    }
  }
  ShowPerson();
  Gen_Txt[kLastName].SetFocus();
}

void EmployeeFrm::Init_Bound_Data() {
  Employee.Read(0);
  lblTypEmp.Caption = "1";
  Employee.MarkWritten();
}

void EmployeeFrm::Set_EmployeeFrm_Rights() {
  const std::string caption = Caption;
  if (!RequireRight(session::kSupervisorRight, "employees")) {
    Caption = caption + " - Read Only";
  }
  chkHideZEP.Enabled = !ReadOnly();
}

void EmployeeFrm::ShowPerson() {
  BirthDate.Show();
  SexTitle.Show();
  ShowPhoneHeading();
  chkHideZEP.Enabled = !ReadOnly();
}

// The number that is seen first may be the fax or the cell phone.
void EmployeeFrm::ShowPhoneHeading() {
  const std::string selected = session::ToText(Employee.Column("pHomCon"));
  Gen_LBL[kPhone].Caption =
      std::string(editing::SideLabel(editing::Side::Home)) + std::string(editing::LabelOfContact(selected));
}

void EmployeeFrm::SaveAndClose() {
  if ((!Adding() && !Unsaved()) || Save()) {
    Close();
  }
}

void EmployeeFrm::Apply() {
  if (MayModify() && (Adding() || Unsaved())) {
    Save();
  }
}

bool EmployeeFrm::Check() {
  if (!BirthDate.Take() || !EmploymentDate.Take() || !SexTitle.Take()) {
    return false;
  }
  Trim();
  return HasName() && initials_.Free(pID);
}

// What nobody touched keeps its blanks.
void EmployeeFrm::Trim() {
  for (const BoundField& bound : kColumns) {
    forms::TextBox& box = Gen_Txt.at(bound.field);
    if (Employee.Changed(box)) {
      box.Text = std::string(forms::Trim(box.Text.get()));
    }
  }
}

bool EmployeeFrm::HasName() {
  for (const Field name : {kLastName, kFirstName}) {
    if (forms::Trim(Gen_Txt.at(name).Text.get()).empty()) {
      Tell("First and last name cannot be blank.", forms::Icon::Information);
      Gen_Txt.at(name).SetFocus();
      return false;
    }
  }
  return true;
}

bool EmployeeFrm::Agreed() {
  if (!Adding()) {
    return true;
  }
  DuplicatePerson::Person person = {.last = Gen_Txt[kLastName].Text, .first = Gen_Txt[kFirstName].Text};
  if (const auto birth = forms::ParseIso(Label.Caption.get())) {
    person.birth = forms::DateOf(*birth);
  }
  return duplicate_.MayAdd(*this, person);
}

void EmployeeFrm::Insert() {
  pID = Employee.Insert();
  Caption = "Employee Information";
}

session::Outcome EmployeeFrm::Ended() const {
  if (duplicate_.Instead() != 0) {
    return {.end = session::Outcome::End::Instead, .id = duplicate_.Instead()};
  }
  return {.end = Saved ? session::Outcome::End::Saved : session::Outcome::End::Cancelled, .id = pID};
}

void EmployeeFrm::picSwapName_Click() {
  if (MayModify()) {
    const std::string last = Gen_Txt[kLastName].Text;
    Gen_Txt[kLastName].Text = Gen_Txt[kFirstName].Text.get();
    Gen_Txt[kFirstName].Text = last;
  }
}

void EmployeeFrm::PickProfessionalTitle() {
  if (!MayModify()) {
    return;
  }
  const auto picked = context_.screens.ShowPickList(session::PickList::ProfessionalTitle, "Professional Title");
  forms::TextBox& title = Gen_Txt[kProfessionalTitle];
  if (picked && picked->text != title.Text.get() &&
      Confirm("Change Professional Title to [ " + picked->text + " ] ?")) {
    title.Text = picked->text;
  }
}

void EmployeeFrm::Set_DocIni() {
  if (MayModify() && !Adding() && initials_.Propose(pID)) {
    Employee.MarkWritten(Gen_Txt[kInitials]);
  }
}

}  // namespace people
