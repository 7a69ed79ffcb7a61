#include "people/EmployeeFrm.h"

namespace people {
namespace {

constexpr std::array kCaptions = {
    "&Last Name", "&First Name", "Se&x",  "&Title",      "&Birth Date",      "&Professional Title",
    "Address &1", "Address &2",  "Cit&y", "&State",      "&ZIP Code",        "Home Phone",
    "Fax",        "E-Mail",      "SS&N",  "EIN N&umber", "&Employment Date", "Te&rmination Date",
    "&Initials"};

// Of the buttons behind fields, as they are read aloud.
constexpr std::array kPickNames = {"Calendar of the birth date",      "Sex and title list",
                                   "Professional title list",         "City, state and ZIP list",
                                   "Calendar of the employment date", "Default initials"};

std::string Indexed(const std::string& name, std::size_t index) {
  return name + "(" + std::to_string(index) + ")";
}

}  // namespace

void EmployeeFrm::Register() {
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
  Add("PictureBox1", PictureBox1);
  Add("DialogButtons1", DialogButtons1);
  DialogButtons1.Extra.Caption = "&Apply";
  DialogButtons1.Extra.Visible = true;

  Properties["pID"] = {[this] { return std::to_string(pID); },
                       [this](const std::string& id) {
                         Opened.mode = session::Opening::Mode::Existing;
                         Opened.id = session::ToId(session::Value(id));
                       }};
}

// In the order in which the page is read.
void EmployeeFrm::AddGeneralPage() {
  const auto add = [this](const std::string& name, forms::Control& control) {
    if (control.Container == nullptr) {
      control.Container = &Frame[kGeneral];
    }
    Add(name, control);
  };
  const auto field = [&](Field index) {
    add(Indexed("Gen_LBL", index), Gen_LBL.at(index));
    add(Indexed("Gen_Txt", index), Gen_Txt.at(index));
    Gen_LBL.at(index).Caption = kCaptions.at(index);
    Gen_Txt.at(index).Heading = &Gen_LBL.at(index);
  };
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
  add("Label2", Label2);
  field(kSsn);
  field(kProfessionalTitle);
  button(kPickProfessionalTitle);
  add("EmploymentDate", EmploymentDate);
  field(kEmployed);
  button(kPickEmployed);
  field(kTerminated);
  field(kEin);
  field(kInitials);
  button(kChooseInitials);
  add("chkHideZEP", chkHideZEP);
  field(kAddress1);
  field(kAddress2);
  field(kCity);
  field(kState);
  field(kZip);
  button(kPickPlace);
  field(kPhone);
  field(kFax);
  field(kEmail);
  add("lblTypEmp", lblTypEmp);
  add("Label", Label);
  Add("ZipCode1", ZipCode1);

  Label.AccessibleName = Gen_LBL[kBirthDate].SpokenName();
  Label.Visible = false;
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
  chkHideZEP.Caption = "Hide from the ZEP time &clock";
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
