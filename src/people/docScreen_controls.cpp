#include "people/docScreen.h"

namespace people {
namespace {

// The later lines of the remarks go on from the first.
constexpr std::array kCaptions = {"&Last Name",
                                  "&First Name",
                                  "Se&x",
                                  "&Title",
                                  "P&rofessional Title",
                                  "Address &1",
                                  "Address &2",
                                  "Cit&y",
                                  "&State",
                                  "&ZIP Code",
                                  "Home Phone",
                                  "Work Phone",
                                  "Licence Num&ber",
                                  "E&IN",
                                  "&General",
                                  "",
                                  "",
                                  "Spe&cialty",
                                  "Em&ployment Date",
                                  "SS&N",
                                  "Medical N&umber",
                                  "Pro&vider Initials",
                                  "Fee Schedule (1 to &4)"};
constexpr std::array kTypeNames = {"Patient",  "Provider",      "Referral",     "Physician",
                                   "Employee", "Person type 6", "Person type 7"};

}  // namespace

void docScreen::Register() {
  Add("Text1", Text1);
  Add("Label1", Label1);
  Add("Text2", Text2);
  Add("Label2", Label2);
  Add("Label4", Label4);
  Add("Frame1", Frame1);
  Add("Frame2", Frame2);
  Add("cboTaxonomy", cboTaxonomy);
  Add("chkHideZEP", chkHideZEP);
  Add("TDBG1", TDBG1);
  RegisterButtons();
  Add("SexTitle", SexTitle);
  Add("Phones", Phones);
  Add("ZipCode_Panel", ZipCodes);
  Add("EmploymentDate", EmploymentDate);
  Add("Employer", Employer);
  Add("PictureBox1", PictureBox1);
  Add("DialogButtons1", DialogButtons1);

  for (std::size_t i = 0; i < Label1.size(); ++i) {
    Label1.at(i).Caption = kCaptions.at(i);
    if (!Label1.at(i).Caption->empty()) {
      Text1.at(i).Heading = &Label1.at(i);
    }
  }
  Text1[kRemark2].AccessibleName = "General Remarks, second line";
  Text1[kRemark3].AccessibleName = "General Remarks, third line";
  Text2[0].AccessibleName = "Employer";
  Text2[0].ToolTip = "Type the employer's name; F9 searches for it, Delete takes it away";
  Label2.Caption = "Taxonomy";
  cboTaxonomy.Heading = &Label2;
  chkHideZEP.Caption = "Hide from the time clock";
  TDBG1.AccessibleName = "Identification numbers";
  for (std::size_t i = 0; i < types_.size(); ++i) {
    types_.at(i).AccessibleName = kTypeNames.at(i);
  }
  for (forms::Control* control :
       std::initializer_list<forms::Control*>{&EmploymentDate, &Text1[kInitials], &Text1[kFeeSchedule], &chkHideZEP,
                                              &Label1[kInitials], &Label1[kFeeSchedule], &Label1[kEmploymentDate]}) {
    control->Container = &Frame1;
  }
  for (forms::Control* control :
       std::initializer_list<forms::Control*>{&Employer, &Label4[0], &Label4[1], &Label4[2]}) {
    control->Container = &Frame2;
  }
  Reads({&Text1[kLastName],
         &Text1[kFirstName],
         &picSwapName,
         &SexTitle,
         &Phones,
         &Text1[kAddress1],
         &Text1[kAddress2],
         &Text1[kCity],
         &Text1[kState],
         &Text1[kZip],
         &ZipCode1,
         &Text1[kRemark1],
         &Text1[kRemark2],
         &Text1[kRemark3],
         &Text1[kInitials],
         &Text1[kFeeSchedule],
         &EmploymentDate,
         &chkHideZEP,
         &Frame2,
         &Text1[kProfessionalTitle],
         &Command2,
         &Text1[kSpecialty],
         &FR2_CMD_SPE,
         &cboTaxonomy,
         &Text1[kLicence],
         &Text1[kMedicalNumber],
         &Text1[kEmployerNumber],
         &Text1[kSsn],
         &TDBG1,
         &PictureBox1,
         &DialogButtons1});
}

void docScreen::RegisterButtons() {
  Add("Command1", Command1);
  Add("Command2", Command2);
  Add("Command3", Command3);
  Add("Command4", Command4);
  Add("Command3D1", Command3D1);
  Add("FR2_CMD_SPE", FR2_CMD_SPE);
  Add("ZipCode1", ZipCode1);
  Add("cmdContact", cmdContact);
  Add("picSwapName", picSwapName);
  Command1.AccessibleName = "Sex and title list";
  Command2.AccessibleName = "Professional title list";
  Command3.AccessibleName = "Employer list";
  Command3D1.AccessibleName = "Calendar";
  FR2_CMD_SPE.AccessibleName = "Specialty list";
  ZipCode1.AccessibleName = "City, state and ZIP list";
  for (forms::Button* button : {&Command1, &Command2, &Command3, &Command3D1, &FR2_CMD_SPE, &ZipCode1}) {
    button->Caption = "...";
    button->ToolTip = "DATABASE LIST, Left mouse - Database list";
    button->TabStop = false;
  }
  Command3D1.ToolTip = "Pick the day from a calendar (F9)";
  Command4.Caption = "Remove";
  cmdContact.Caption = "Contacts...";
  picSwapName.Caption = "S&wap";
  picSwapName.AccessibleName = "Swap first and last name";
  picSwapName.Picture = "SWAP-16X16.PNG";
  picSwapName.ToolTip = " Swap first and last name ";
}

void docScreen::SetHelp() {
  PictureBox1.Set(Text1[kInitials], "Up to five letters by which lists show this provider. Nobody else can have them.");
  PictureBox1.Set(Text1[kFeeSchedule], "The number of the office's fee schedule, 1 to 4.");
  PictureBox1.Set(Text2[0],
                  "Type the employer's name, or press [F9] to search for it.////Press [Delete] to take it away.");
  PictureBox1.Set(cboTaxonomy, "What this person is to the health plans.////Press [Delete] to choose none.");
  PictureBox1.Set(TDBG1, "Type each number beside its kind. An empty number is not used.");
}

}  // namespace people
