#include "forms/text.h"
#include "people/FamScreen.h"

namespace people {
namespace {

struct Named {
  std::size_t index;
  const char* caption;
};

constexpr std::array kCaptions = {
    Named{FamScreen::kLastName, "&Last Name"},
    Named{FamScreen::kFirstName, "&First Name"},
    Named{FamScreen::kBirthDate, "&Birth Date"},
    Named{FamScreen::kSex, "Se&x"},
    Named{FamScreen::kTitle, "T&itle"},
    Named{FamScreen::kReferral, "&Referred By :"},
    Named{FamScreen::kSsn, "SS&N"},
    Named{FamScreen::kHomePhone, "Home Phone"},
    Named{FamScreen::kWorkPhone, "Work Phone"},
    Named{FamScreen::kAddress1, "&Address 1"},
    Named{FamScreen::kAddress2, "Addr&ess 2"},
    Named{FamScreen::kCity, "Cit&y"},
    Named{FamScreen::kState, "&State"},
    Named{FamScreen::kZip, "&ZIP Code"},
    Named{FamScreen::kProvider, "&Provider :"},
    Named{FamScreen::kLicence, "Dri&ver's License"},
    Named{FamScreen::kCardType, "Credit Card"},
    Named{FamScreen::kCardNumber, "Card Number"},
    Named{FamScreen::kBillingTitle, "Billin&g Title"},
    Named{FamScreen::kAccountType, "Acco&unt Type"},
    Named{FamScreen::kNextStatement, "Next S&tatement"},
};

// Of the pick buttons, as they are read aloud.
constexpr std::array kPickNames = {"Calendar",    "Sex and title list", "Provider list",          "Billing title list",
                                   "Credit card", "Referral list",      "Next statement calendar"};

}  // namespace

void FamScreen::Register() {
  for (const auto& [index, caption] : kCaptions) {
    const std::string position = "(" + std::to_string(index) + ")";
    Add("Text1" + position, Text1.at(index));
    Label1.at(index).Caption = caption;
    Add("Label1" + position, Label1.at(index));
    if (index != kCardType && index != kCardNumber) {
      Text1.at(index).Heading = &Label1.at(index);
    }
  }
  Add("Label5", Label5);
  Add("Label2", Label2);
  Add("Command3D1", Command3D1);
  Add("Command3D2", Command3D2);
  Add("cmdContact", cmdContact);
  Add("BirthDate", BirthDate);
  Add("SexTitle", SexTitle);
  Add("Phones", Phones);
  Add("NextStatement", NextStatement);
  Add("Employers", Employers);
  Add("Members", Members);
  Add("Name_List", Name_List);
  Add("ZipCode_Panel", ZipCodes);
  Add("picSwapName", picSwapName);
  Add("chkPersonIsPatient", chkPersonIsPatient);
  Add("PictureBox1", PictureBox1);
  Add("DialogButtons1", DialogButtons1);
  NameControls();
  ReadLines();

  const auto flag = [](bool& value) {
    return NamedProperty{[&value] { return value ? "True" : "False"; },
                         [&value](const std::string& text) { value = forms::IsOn(text); }};
  };
  Properties["NOT-A-HEAD"] = flag(NotAHead);
  Properties["NO_MESSAGE"] = flag(NoMessage);
  Properties["ObjParent"] = {[this] { return ObjParent != nullptr ? "True" : "False"; }, nullptr};
}

void FamScreen::NameControls() {
  for (std::size_t i = 0; i < Command3D1.size(); ++i) {
    Command3D1.at(i).AccessibleName = kPickNames.at(i);
    Command3D1.at(i).Caption = "...";
    Command3D1.at(i).ToolTip = "DATABASE LIST, Left mouse - Database list";
    Command3D1.at(i).TabStop = false;
  }
  for (const PickButton calendar : {kPickBirthDate, kPickNextStatement}) {
    Command3D1.at(calendar).ToolTip = "Pick the day from a calendar (F9)";
  }
  Command3D1[kEditCard].ToolTip = "Enter or remove a credit card (F9)";
  Command3D2.Caption = "...";
  Command3D2.ToolTip = "DATABASE LIST, Left mouse - Database list";
  Command3D2.AccessibleName = "City, state and ZIP list";
  Command3D2.TabStop = false;
  Text1[kCardType].AccessibleName = "Credit card";
  Text1[kCardNumber].AccessibleName = "Credit card number";
  Label5[kIsPatient].AccessibleName = "Patient";
  Label5[kBirthDay].AccessibleName = Label1[kBirthDate].SpokenName();
  Label5[kReferralId].AccessibleName = Label1[kReferral].SpokenName();
  Label5[kProviderId].AccessibleName = Label1[kProvider].SpokenName();
  Label5[kFamilyHeadId].AccessibleName = "Family head";
  cmdContact.Caption = "&Contacts...";
  picSwapName.Caption = "S&wap";
  picSwapName.AccessibleName = "Swap first and last name";
  picSwapName.Picture = "SWAP-16X16.PNG";
  picSwapName.ToolTip = " Swap first and last name ";
  chkPersonIsPatient.Caption = "This person is a patient";
  chkPersonIsPatient.ThreeState = true;
  chkPersonIsPatient.ToolTip = "Checked: a patient. Half checked: a former patient. Empty: a responsible person only.";
  DialogButtons1.Delete.Visible = true;
}

void FamScreen::ReadLines() {
  Reads({&Text1[kLastName],
         &Text1[kFirstName],
         &picSwapName,
         &SexTitle,
         &BirthDate,
         &Text1[kSsn],
         &Text1[kLicence],
         &Phones,
         &Text1[kAddress1],
         &Text1[kAddress2],
         &Text1[kCity],
         &Text1[kState],
         &Text1[kZip],
         &Command3D2,
         &Text1[kBillingTitle],
         &Command3D1[kPickBillingTitle],
         &Text1[kAccountType],
         &NextStatement,
         &Text1[kCardType],
         &Text1[kCardNumber],
         &Command3D1[kEditCard],
         &Text1[kReferral],
         &Command3D1[kPickReferral],
         &Text1[kProvider],
         &Command3D1[kPickProvider],
         &Label2,
         &chkPersonIsPatient,
         &Members,
         &Employers,
         &PictureBox1,
         &DialogButtons1});
}

void FamScreen::SetHelp() {
  const std::string name = "Make changes if needed and press [Enter] to continue.";
  PictureBox1.Set(Text1[kLastName], name);
  PictureBox1.Set(Text1[kFirstName], name);
  PictureBox1.Set(Text1[kReferral], Referral.Help());
  PictureBox1.Set(Text1[kProvider], Provider.Help());
}

}  // namespace people
