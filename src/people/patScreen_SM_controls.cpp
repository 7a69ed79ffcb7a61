#include "forms/text.h"
#include "people/patScreen_SM.h"

namespace people {
namespace {

constexpr std::array kCaptions = {
    "&Last Name", "&First Name", "&Birth Date", "Se&x",  "&Title", "&Referred By :", "SS&N",        "Home Phone",
    "Work Phone", "Address &1",  "Address &2",  "Cit&y", "&State", "&ZIP Code",      "&Provider :", "Med&ical Alert"};

// Of the pick buttons, as they are read aloud.
constexpr std::array kPickNames = {"Calendar",      "Sex and title list", "Referral list",
                                   "Provider list", "Medical alert list", "Fee schedule list"};

}  // namespace

void patScreen_SM::Register() {
  Add("Text1", Text1);
  Add("Label1", Label1);
  Add("Label5", Label5);
  Add("Command3D1", Command3D1);
  Add("Command3D2", Command3D2);
  Add("cmdContact", cmdContact);
  Add("BirthDate", BirthDate);
  Add("SexTitle", SexTitle);
  Add("Phones", Phones);
  Add("Name_List", Name_List);
  Add("ZipCode_Panel", ZipCodes);
  Add("picSwapName", picSwapName);
  Add("PictureBox1", PictureBox1);
  Add("DialogButtons1", DialogButtons1);

  for (std::size_t i = 0; i < Label1.size(); ++i) {
    Label1.at(i).Caption = kCaptions.at(i);
    Text1.at(i).Heading = &Label1.at(i);
  }
  for (std::size_t i = 0; i < Command3D1.size(); ++i) {
    Command3D1.at(i).AccessibleName = kPickNames.at(i);
  }
  Label5[kAlertUpdated].AccessibleName = "Date of the medical alert";
  Label5[kAlertUpdated].Told = ToldDay;
  Label5[kBirthDay].AccessibleName = Label1[kBirthDate].SpokenName();
  Label5[kReferralId].AccessibleName = Label1[kReferral].SpokenName();
  Label5[kProviderId].AccessibleName = Label1[kProvider].SpokenName();
  Label5[kFeeSchedule].AccessibleName = "Fee Schedule";
  Command3D2.AccessibleName = "City, state and ZIP list";
  for (forms::Button* button :
       {&Command3D1[0], &Command3D1[1], &Command3D1[2], &Command3D1[3], &Command3D1[4], &Command3D1[5], &Command3D2}) {
    button->Caption = "...";
    button->ToolTip = "DATABASE LIST, Left mouse - Database list";
    button->TabStop = false;
  }
  Command3D1[kPickBirthDate].ToolTip = "Pick the day from a calendar (F9)";
  Command3D1[kPickFeeSchedule].TabStop = true;  // no field stands before it
  Command3D1[kPickFeeSchedule].Heading = &Label5[kFeeScheduleText];
  cmdContact.Caption = "&Contacts...";
  picSwapName.Caption = "S&wap";
  picSwapName.AccessibleName = "Swap first and last name";
  picSwapName.Picture = "SWAP-16X16.PNG";
  picSwapName.ToolTip = " Swap first and last name ";
  DialogButtons1.Extra.Caption = "Sa&ve and Book";
  Reads({&Text1[kLastName],
         &Text1[kFirstName],
         &picSwapName,
         &SexTitle,
         &BirthDate,
         &Text1[kSsn],
         &Phones,
         &Text1[kAddress1],
         &Text1[kAddress2],
         &Text1[kCity],
         &Text1[kState],
         &Text1[kZip],
         &Command3D2,
         &Text1[kReferral],
         &Command3D1[kPickReferral],
         &Text1[kProvider],
         &Command3D1[kPickProvider],
         &Text1[kMedicalAlert],
         &Command3D1[kPickMedicalAlert],
         &Label5[kFeeScheduleText],
         &Command3D1[kPickFeeSchedule],
         &PictureBox1,
         &DialogButtons1});

  Properties["pID"] = {[this] { return std::to_string(pID); },
                       [this](const std::string& id) {
                         Opened.mode = session::Opening::Mode::Existing;
                         Opened.id = session::ToId(session::Value(id));
                       }};
  Properties["TypedName"] = {[this] { return Opened.typed_name; },
                             [this](const std::string& name) { Opened.typed_name = name; }};
  Properties["ShowSaveNBookAppt"] = {[this] { return ShowSaveNBookAppt ? "True" : "False"; },
                                     [this](const std::string& show) { Opened.may_book = forms::IsOn(show); }};
}

void patScreen_SM::SetHelp() {
  const std::string name = "Make changes if needed and press [Enter] to continue.";
  PictureBox1.Set(Text1[kLastName], name);
  PictureBox1.Set(Text1[kFirstName], name);
  PictureBox1.Set(Text1[kBirthDate],
                  "Type the birth date directly on this field. There is no need to hyphenate.////The age in years and "
                  "months will appear automatically!");
  PictureBox1.Set(Text1[kReferral], Referral.Help());
  PictureBox1.Set(Text1[kProvider], Provider.Help());
  PictureBox1.Set(Text1[kAddress1],
                  "Type the patient's street address in Address Line 1. There is no need to capitalize.");
  PictureBox1.Set(Text1[kAddress2],
                  "Address Line 2 is optional. For example, it might be used for an apartment number.");
  PictureBox1.Set(Text1[kState],
                  "The State field will fill in automatically when you select from the City or Zip Code database.");
}

}  // namespace people
