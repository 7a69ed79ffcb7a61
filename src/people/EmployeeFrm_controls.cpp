#include <utility>

#include "people/EmployeeFrm.h"

namespace people {
namespace {

constexpr std::array kCaptions = {
    "&Last Name", "&First Name", "Se&x",  "&Title",      "&Birth Date",      "&Professional Title",
    "Address &1", "Address &2",  "Cit&y", "&State",      "&ZIP Code",        "Hom&e Phone",
    "F&ax",       "E-&Mail",     "SS&N",  "EIN N&umber", "Employment &Date", "Te&rmination Date",
    "&Initials",  "Login &Name"};

// Of the buttons behind fields, as they are read aloud.
constexpr std::array kPickNames = {"Calendar of the birth date",      "Sex and title list",
                                   "Professional title list",         "City, state and ZIP list",
                                   "Calendar of the employment date", "Default initials"};

std::string Indexed(const std::string& name, std::size_t index) {
  return name + "(" + std::to_string(index) + ")";
}

}  // namespace

void EmployeeFrm::Register() {
  Add("Locations", Locations);
  Add("TabEBInfo", TabEBInfo);
  Add("Frame", Frame);
  TabEBInfo.AccessibleName = "Pages";
  Frame[kGeneral].Caption = "General";
  Frame[kPayrollStatus].Caption = "Payroll Status";
  Frame[kLogin].Caption = "Login and Rights";
  for (forms::Panel& page : Frame) {
    TabEBInfo.AddPage(page);
  }
  AddGeneralPage();
  AddTo(kPayrollStatus, "PayrollStatus", Payroll);
  AddLoginPage();
  AddTo(kLogin, "LoginRights", Rights);
  Add("PictureBox1", PictureBox1);
  Add("DialogButtons1", DialogButtons1);
  DialogButtons1.Extra.Caption = "Apply";
  DialogButtons1.Extra.Visible = true;

  Properties["pID"] = {[this] { return std::to_string(pID); },
                       [this](const std::string& id) {
                         Opened.mode = session::Opening::Mode::Existing;
                         Opened.id = session::ToId(session::Value(id));
                       }};
  Properties["NewEmployeePasswordID"] = {
      [this] { return std::to_string(NewEmployeePasswordID); },
      [this](const std::string& id) { Opened.new_employee_login = session::ToId(session::Value(id)); }};
}

// In the order in which its page is read.
void EmployeeFrm::AddTo(Page page, const std::string& name, forms::Control& control) {
  if (control.Container == nullptr) {
    control.Container = &Frame.at(page);
  }
  Add(name, control);
}

void EmployeeFrm::AddField(Page page, Field field) {
  AddTo(page, Indexed("Gen_LBL", field), Gen_LBL.at(field));
  AddTo(page, Indexed("Gen_Txt", field), Gen_Txt.at(field));
  Gen_LBL.at(field).Caption = kCaptions.at(field);
  Gen_Txt.at(field).Heading = &Gen_LBL.at(field);
}

void EmployeeFrm::AddGeneralPage() {
  const auto add = [this](const std::string& name, forms::Control& control) { AddTo(kGeneral, name, control); };
  const auto field = [this](Field index) { AddField(kGeneral, index); };
  const auto button = [&](Command index) {
    forms::Button& pick = Gen_CMD.at(index);
    add(Indexed("Gen_CMD", index), pick);
    pick.Caption = "...";
    pick.AccessibleName = kPickNames.at(index);
    pick.ToolTip = "DATABASE LIST, Left mouse - Database list";
    pick.TabStop = false;
  };
  field(kLastName);
  field(kFirstName);
  add("picSwapName", picSwapName);
  add("SexTitle", SexTitle);
  field(kSex);
  field(kTitle);
  button(kPickSexTitle);
  add("BirthDate", BirthDate);
  field(kBirthDate);
  button(kPickBirthDate);
  add(Indexed("Label", kAge), Label[kAge]);
  field(kSsn);
  field(kEin);
  field(kProfessionalTitle);
  button(kPickProfessionalTitle);
  field(kInitials);
  button(kChooseInitials);
  field(kPhone);
  field(kFax);
  field(kEmail);
  field(kAddress1);
  field(kAddress2);
  field(kCity);
  field(kState);
  field(kZip);
  button(kPickPlace);
  add("Label2", Label2);
  add("EmploymentDate", EmploymentDate);
  field(kEmployed);
  button(kPickEmployed);
  field(kTerminated);
  add("chkHideZEP", chkHideZEP);
  AddEmploymentCommands();
  add("lblTypEmp", lblTypEmp);
  add(Indexed("Label", kBirthDay), Label[kBirthDay]);
  Add("ZipCode1", ZipCode1);

  Label[kBirthDay].AccessibleName = Gen_LBL[kBirthDate].SpokenName();
  Label[kBirthDay].Visible = false;
  lblTypEmp.AccessibleName = "Employee";
  lblTypEmp.Visible = false;
  for (const Command calendar : {kPickBirthDate, kPickEmployed}) {
    Gen_CMD.at(calendar).ToolTip = "Pick the day from a calendar (F9)";
  }
  Gen_CMD[kChooseInitials].ToolTip = "Choose initials that nobody else has (F9)";
  picSwapName.Caption = "S&wap";
  picSwapName.AccessibleName = "Swap first and last name";
  picSwapName.Picture = "SWAP-16X16.PNG";
  picSwapName.ToolTip = " Swap first and last name ";
  chkHideZEP.Caption = "Hide from the ZEP time cloc&k";
}

void EmployeeFrm::AddEmploymentCommands() {
  AddTo(kGeneral, "Pic_CMD", Pic_CMD);
  for (const auto& [command, caption] :
       {std::pair(kTerminate, "Terminate"), std::pair(kReactivate, "Re-activate"), std::pair(kDelete, "Delete")}) {
    forms::Button& button = Gen_CMD.at(command);
    button.Container = &Pic_CMD;
    button.Caption = caption;
    Add(Indexed("Gen_CMD", command), button);
  }
  Gen_CMD[kTerminate].ToolTip = "End employment, and take login and rights away";
  Gen_CMD[kReactivate].ToolTip = "Make a terminated person an employee again";
  Gen_CMD[kDelete].ToolTip = "Delete this employee record";
}

void EmployeeFrm::AddLoginPage() {
  AddTo(kLogin, "Login", Login);
  AddField(kLogin, kLoginName);
  AddTo(kLogin, Indexed("Gen_CMD", kPassword), Gen_CMD[kPassword]);
  AddTo(kLogin, Indexed("Label", kPasswordState), Label[kPasswordState]);
  Gen_CMD[kPassword].Caption = "Pass&word...";
}

void EmployeeFrm::SetHelp() {
  PictureBox1.Set(Gen_Txt[kEmployed], "Type the day on which employment began. There is no need to hyphenate.");
  PictureBox1.Set(Gen_Txt[kTerminated], "Click 'Terminate' to end employment, and 'Re-activate' to begin it again.");
  PictureBox1.Set(Gen_Txt[kInitials], "Initials stand for the employee in the office's records. No two are the same.");
  PictureBox1.Set(Gen_Txt[kAddress1], "Type the street address in Address Line 1. There is no need to capitalize.");
  PictureBox1.Set(Gen_Txt[kState],
                  "The State field will fill in automatically when you select from the City or Zip Code database.");
}

}  // namespace people
