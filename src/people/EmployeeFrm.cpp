#include "people/EmployeeFrm.h"

#include "data/literal.h"
#include "editing/customary_form.h"
#include "forms/text.h"
#include "forms/us_numbers.h"

namespace people {
namespace {

using data::Words;

struct BoundField {
  EmployeeFrm::Field field = {};
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

constexpr std::string_view kFirstPhone = "Pho1";

bool IsSet(const std::string& flag) {
  return flag >= "1";
}

}  // namespace

EmployeeFrm::EmployeeFrm(const session::ScreenContext& context)
    : EditingForm("EmployeeFrm", context),
      Employee(context.session, "paTable", "pID"),
      BirthDate(context, {Gen_Txt[kBirthDate], Gen_CMD[kPickBirthDate], Label[kBirthDay], Label[kAge]}),
      EmploymentDate(context, {Gen_Txt[kEmployed], Gen_CMD[kPickEmployed]}),
      SexTitle(context, {Gen_Txt[kSex], Gen_Txt[kTitle], Gen_CMD[kPickSexTitle]}, "this employee's"),
      Login(context, {Gen_Txt[kLoginName], Gen_CMD[kPassword], Label[kPasswordState]},
            [this] {
              return LoginName::Person{pID, Gen_Txt[kLastName].Text, Gen_Txt[kFirstName].Text};
            }),
      ZipCode1(context, {Gen_Txt[kCity], Gen_Txt[kState], Gen_Txt[kZip], Gen_CMD[kPickPlace]}),
      PictureBox1(context),
      Locations(context),
      Payroll(context, Locations),
      Rights(context, Locations),
      contacts_(context.session),
      duplicate_(context),
      initials_(context, Gen_Txt[kInitials], Initials::Asks::Employee),
      employment_(context) {
  for (const BoundField& bound : kColumns) {
    Employee.Bind(Gen_Txt.at(bound.field), bound.column, bound.format);
  }
  Employee.Bind(Label[kBirthDay], "pBirDat");
  Employee.Bind(first_phone_, "pHomPho1");
  Employee.Repeats(first_phone_);
  Employee.Bind(lblTypEmp, "pTypEmp");
  Employee.Bind(chkHideZEP, "pHidZEP");
  Register();
  SetHelp();
  Wire();
  WirePages();
  WireSaving();
}

void EmployeeFrm::Wire() {
  const auto customary = [this](Field field, std::string (*format)(std::string_view)) {
    Gen_Txt.at(field).Leave = [this, field, format] {
      editing::TakeCustomaryForm(context_.session, Employee, Gen_Txt.at(field), format);
    };
  };
  customary(kSsn, forms::FormatSsn);
  customary(kPhone, forms::FormatTenDigits);
  customary(kFax, forms::FormatTenDigits);
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
  Gen_CMD[kTerminate].Click = [this] { Terminate(); };
  Gen_CMD[kReactivate].Click = [this] { Reactivate(); };
  Gen_CMD[kDelete].Click = [this] { Delete(); };
  DialogButtons1.OK.Click = [this] { SaveAndClose(); };
  DialogButtons1.Extra.Click = [this] { Apply(); };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
  DialogButtons1.Help.Click = [this] { PictureBox1.Show(); };
}

void EmployeeFrm::WireSaving() {
  Edits(Employee);
  Edits(Login.Record());
  const auto always = [] { return true; };
  const auto adding = [this] { return Adding(); };
  const auto with_new_login = [this] { return Login.BelongsToNobody(); };
  OnSave(adding, [this] { Insert(); });
  OnSave(adding, [this] { Hold("PATABLE", pID); });
  OnSave(always, [this] { UpdatePerson(); });
  const auto shows = [this](std::string_view contact, Field field) {
    return ShownContact() == contact && Employee.Changed(Gen_Txt.at(field));
  };
  const auto types_phone = [this] { return Employee.Changed(Gen_Txt[kPhone]); };
  OnSave([=, this] { return ShownContact() != kFirstPhone && types_phone(); }, [this] { SavePhone(); });
  OnSave([=] { return !types_phone() && (shows("Fax", kFax) || shows("Ema", kEmail)); },
         [this] { contacts_.Mirror(pID, editing::Side::Home, ShownContact()); });
  const auto makes_login = [this] { return Login.IsNew(); };
  OnSave(makes_login, [this] { NewEmployeePasswordID = Login.Insert(pID); });
  OnSave(makes_login, [this] { Hold("PWMTABLE", Login.Id()); });
  OnSave(with_new_login, [this] { Login.Link(pID); });
  OnSave(with_new_login, [this] { Login.Locate(); });
  OnSave([this] { return Login.Pending() || Rights.Unsaved(); }, [this] { SaveLogin(); });
  OnSavePages();
  OnSave(always, [this] { ShowEmployment(); });
  OnSave([this] { return Adding() && Gen_Txt[kInitials].Text->empty(); }, [this] { GiveInitials(); });
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
    ReadExisting();
  }
  if (!Closed()) {
    ReadLogin();
    ShowPerson();
    ReadPages();
    Gen_Txt[kLastName].SetFocus();
  }
}

// Held before it is read.
void EmployeeFrm::ReadExisting() {
  pID = Opened.id;
  if (!ReadOnly() && pID != 0) {
    Hold("PATABLE", pID);
  }
  if (pID == 0 || !Employee.Read(pID)) {
    Tell("Employee " + std::to_string(pID) + " was not found in the database.", forms::Icon::Information);
    Close();
  } else if (Opened.joins && !IsSet(lblTypEmp.Caption.get())) {
    lblTypEmp.Caption = "1";
    Gen_Txt[kTerminated].Text = "";
  }
}

// What somebody else wrote between reading and holding is found when it is saved.
void EmployeeFrm::ReadLogin() {
  NewEmployeePasswordID = Opened.new_employee_login;
  Login.Read(pID);
  if (Login.Id() == 0 && NewEmployeePasswordID != 0) {
    Login.ReadEntered(NewEmployeePasswordID);
  }
  if (!ReadOnly() && Login.Id() != 0) {
    Hold("PWMTABLE", Login.Id());
  }
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
  ShowEmployment();
  chkHideZEP.Enabled = !ReadOnly();
}

void EmployeeFrm::ShowEmployment() {
  const bool ended = Terminated() || lblTypEmp.Caption.get() == "0";
  Label2.Caption = Terminated()   ? "Terminated on " + Gen_Txt[kTerminated].Text.get()
                   : IsProvider() ? "Service provider"
                   : ended        ? "No longer an employee"
                                  : "Employee";
  Payroll.SetTerminated(Terminated());
  Gen_Txt[kLoginName].ReadOnly = Terminated() || ReadOnly();
  Gen_CMD[kTerminate].Enabled = !Adding();
  Gen_CMD[kReactivate].Enabled = !Adding() && ended;
  Gen_CMD[kDelete].Enabled = !Adding();
}

// The number that is seen may be the fax or the cell phone.
void EmployeeFrm::ShowPhoneHeading() {
  Gen_LBL[kPhone].Caption = "Hom&e " + std::string(editing::LabelOfContact(ShownContact()));
  if (ShownContact() != "Ema") {
    Gen_Txt[kPhone].MaxLength = first_phone_.MaxLength.get();
  }
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

std::string_view EmployeeFrm::ShownContact() const {
  return editing::kContactCodes.at(editing::ContactOf(session::ToText(Employee.Column("pHomCon")))).Text();
}

void EmployeeFrm::PhoneFollows() {
  first_phone_.Text = ShownContact() == kFirstPhone && Employee.Changed(Gen_Txt[kPhone])
                          ? Gen_Txt[kPhone].Text.get()
                          : Employee.Stored(first_phone_);
}

// Another contact that is seen is written where it is kept.
void EmployeeFrm::SavePhone() {
  contacts_.Read(pID);
  contacts_.Save(pID, {{editing::Side::Home, Gen_Txt[kPhone].Text}});
  Employee.Refresh({&Gen_Txt[kPhone], &Gen_Txt[kFax], &Gen_Txt[kEmail]});
}

bool EmployeeFrm::Check() {
  if (!BirthDate.Take() || !EmploymentDate.Take() || !SexTitle.Take()) {
    return false;
  }
  Trim();
  PhoneFollows();
  return HasName() && EmployedBeforeEnd() && initials_.Free(pID) && Login.Take() && Payroll.Check();
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

bool EmployeeFrm::EmployedBeforeEnd() {
  const auto employed = DateIn(kEmployed);
  const auto terminated = DateIn(kTerminated);
  const bool touched = Employee.Changed(Gen_Txt[kEmployed]) || Employee.Changed(Gen_Txt[kTerminated]);
  if (!touched || !employed || !terminated || *employed <= *terminated) {
    return true;
  }
  Tell("Employment cannot begin after it ended on " + forms::FormatDashed(*terminated) + ".", forms::Icon::Exclamation);
  Gen_Txt[kEmployed].SetFocus();
  return false;
}

bool EmployeeFrm::Agreed() {
  if (Adding()) {
    DuplicatePerson::Person person = {.last = Gen_Txt[kLastName].Text, .first = Gen_Txt[kFirstName].Text};
    if (const auto birth = forms::ParseIso(Label[kBirthDay].Caption.get())) {
      person.birth = forms::DateOf(*birth);
    }
    if (!duplicate_.MayAdd(*this, person)) {
      return false;
    }
    GiveDefaults();
  }
  CompleteRights();
  return true;
}

void EmployeeFrm::Insert() {
  pID = Employee.Insert();
  Caption = "Employee Information";
}

// Absences go with the date behind which they lie.
void EmployeeFrm::UpdatePerson() {
  session::Transaction transaction(context_.session.Connection());
  if (Terminated() && Employee.Changed(Gen_Txt[kTerminated])) {
    employment_.RemoveAbsencesAfter(pID, *DateIn(kTerminated));
  }
  Employee.Write();
  transaction.Commit();
  Employee.MarkUpdated();
}

session::Outcome EmployeeFrm::Ended() const {
  if (duplicate_.Instead() != 0) {
    return {.end = session::Outcome::End::Instead, .id = duplicate_.Instead()};
  }
  if (deleted_) {
    return {};
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
    title.Text = forms::Fitting(picked->text, title.MaxLength);
  }
}

std::optional<forms::Date> EmployeeFrm::DateIn(Field field) const {
  return forms::ParseDate(Gen_Txt.at(field).Text.get(), context_.session.Today());
}

void EmployeeFrm::Set_DocIni() {
  if (MayModify() && HasName()) {
    initials_.Offer(pID, Gen_Txt[kLastName].Text.get(), Gen_Txt[kFirstName].Text.get());
  }
}

void EmployeeFrm::GiveInitials() {
  if (initials_.Propose(pID)) {
    RequireHold();
    Employee.Update();
  }
}

}  // namespace people
