#include "people/patScreen_SM.h"

#include "data/literal.h"
#include "forms/text.h"
#include "people/name_entry.h"

namespace people {
namespace {

using data::Literal;
using data::Words;

constexpr std::string_view kSetup = "DEFAULT_OFFICE_SETUP";

struct BoundField {
  std::size_t index = 0;
  Words column;
};
constexpr std::array kTextColumns = {BoundField{0, "pLASNAM"}, BoundField{1, "pFIRNAM"}, BoundField{3, "pSEX"},
                                     BoundField{4, "pTTL"},    BoundField{6, "pSSN"},    BoundField{7, "pHOMPHO"},
                                     BoundField{8, "pBUSPHO"}, BoundField{9, "pADD1"},   BoundField{10, "pADD2"},
                                     BoundField{11, "pCIT"},   BoundField{12, "pSTA"},   BoundField{13, "pZIP"},
                                     BoundField{15, "pMEDALE"}};
constexpr std::array kLabelColumns = {BoundField{0, "pMEDALEUPD"},    BoundField{1, "pTypPat"},
                                      BoundField{2, "pTypDoc"},       BoundField{3, "pTypRef"},
                                      BoundField{4, "pTypPhy"},       BoundField{5, "pTypEmp"},
                                      BoundField{6, "pTypX1"},        BoundField{7, "pTypX2"},
                                      BoundField{8, "pBIRDAT"},       BoundField{9, "pREFIND"},
                                      BoundField{10, "pFAMHEAIND"},   BoundField{11, "pPROIND"},
                                      BoundField{12, "pPHY1"},        BoundField{13, "pPHY2"},
                                      BoundField{19, "pGPDenFeeTyp"}, BoundField{20, "pGPDenFeeTypPerm"},
                                      BoundField{21, "pACCTYP"}};
constexpr std::array kCaptions = {
    "&Last Name", "&First Name", "&Birth Date", "Se&x",  "&Title", "&Referred By :", "SS&N",        "Home Phone",
    "Work Phone", "Address &1",  "Address &2",  "Cit&y", "&State", "&ZIP Code",      "&Provider :", "Med&ical Alert"};

// Of the pick buttons, as they are read aloud.
constexpr std::array kPickNames = {"Calendar",      "Sex and title list", "Referral list",
                                   "Provider list", "Medical alert list", "Fee schedule list"};

constexpr PersonKind kReferralKind = {.word = "Referral",
                                      .whose = "this patient's",
                                      .right = "CHANGE-REF-NAME",
                                      .right_what = "referral names",
                                      .type = "pTypRef",
                                      .record = session::RecordKind::Referral,
                                      .list = session::lulReferral};
constexpr PersonKind kProviderKind = {.word = "Provider",
                                      .whose = "this patient's",
                                      .right = "CHANGE-PRO-NAME",
                                      .right_what = "provider names",
                                      .type = "pTypDoc",
                                      .record = session::RecordKind::Provider,
                                      .list = session::lulProvider};

std::string SearchHelp(const std::string& what) {
  return "Type the last name [comma] first name and press [Enter] to enter a new " + what + ".////To add a new " +
         what + ", type in " + what + " name and press [Enter] Key.////Press [Esc] key to close search window.";
}

}  // namespace

patScreen_SM::patScreen_SM(const session::ScreenContext& context)
    : EditingForm("patScreen_SM", context),
      Patient_SM(context.session, "Patable", "pID"),
      BirthDate(context, {Text1[kBirthDate], Command3D1[kPickBirthDate], Label5[kBirthDay], Label5[kAgeText]}),
      SexTitle(context, {Text1[kSex], Text1[kTitle], Command3D1[kPickSexTitle]}, "this patient's"),
      Phones(context, {Text1[kHomePhone], Text1[kWorkPhone], cmdContact}, Patient_SM),
      ZipCodes(context, {Text1[kCity], Text1[kState], Text1[kZip], Command3D2, Text1[kHomePhone]}),
      Name_List(context),
      Referral(context, kReferralKind, Text1[kReferral], Command3D1[kPickReferral], Label5[kReferralId]),
      Provider(context, kProviderKind, Text1[kProvider], Command3D1[kPickProvider], Label5[kProviderId]),
      PictureBox1(context) {
  for (const BoundField& bound : kTextColumns) {
    Patient_SM.Bind(Text1.at(bound.index), bound.column);
  }
  for (const BoundField& bound : kLabelColumns) {
    Patient_SM.Bind(Label5.at(bound.index), bound.column);
    Label5.at(bound.index).Visible = false;
  }
  Register();
  SetHelp();
  Wire();
}

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
  Command3D2.AccessibleName = "City, state and ZIP list";
  for (forms::Button* button :
       {&Command3D1[0], &Command3D1[1], &Command3D1[2], &Command3D1[3], &Command3D1[4], &Command3D1[5], &Command3D2}) {
    button->Caption = "...";
    button->ToolTip = "DATABASE LIST, Left mouse - Database list";
    button->TabStop = false;
  }
  Command3D1[kPickFeeSchedule].TabStop = true;  // no field stands before it
  Command3D1[kPickFeeSchedule].Heading = &Label5[kFeeScheduleText];
  cmdContact.Caption = "&Contacts...";
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
  PictureBox1.Set(Text1[kReferral], SearchHelp("Referral"));
  PictureBox1.Set(Text1[kProvider], SearchHelp("Provider"));
  PictureBox1.Set(Text1[kAddress1],
                  "Type the patient's street address in Address Line 1. There is no need to capitalize.");
  PictureBox1.Set(Text1[kAddress2],
                  "Address Line 2 is optional. For example, it might be used for an apartment number.");
  PictureBox1.Set(Text1[kState],
                  "The State field will fill in automatically when you select from the City or Zip Code database.");
}

void patScreen_SM::Wire() {
  Name_List.Attach(Referral);
  Name_List.Attach(Provider);
  ZipCodes.BeforeDeleteKey = [this] { return Confirm("Do you want delete this City, State, and Zip Code?"); };
  Phones.SaveNew = [this] { return Save(); };
  Text1[kMedicalAlert].KeyDown = [this](forms::Key key) {
    if (key == forms::Key::F9) {
      PickMedicalAlert();
    }
    return key == forms::Key::F9;
  };
  Command3D1[kPickMedicalAlert].Click = [this] { PickMedicalAlert(); };
  Command3D1[kPickFeeSchedule].Click = [this] { PickFeeSchedule(); };
  picSwapName.Click = [this] { picSwapName_Click(); };
  DialogButtons1.OK.Click = [this] { SaveFromButton(false); };
  DialogButtons1.Extra.Click = [this] { SaveFromButton(true); };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
  DialogButtons1.Help.Click = [this] { PictureBox1.Show(); };

  const auto always = [] { return true; };
  const auto adding = [this] { return Adding(); };
  OnSave(adding, [this] { Insert(); });
  OnSave(adding, [this] { Hold("PATABLE", pID); });
  OnSave([this] { return Adding() || Patient_SM.Changed(Text1[kFirstName]); }, [this] { WriteNickname(); });
  OnSave(always, [this] { Patient_SM.Update(); });
  OnSave(always, [this] { Contacts_Save(); });
  OnSave(always, [this] { context_.session.RecordHandOff("pID", "PaTable", pID); });
}

void patScreen_SM::Read() {
  const bool emergency = Opened.mode == session::Opening::Mode::Emergency;
  Caption = std::string(!Opened.IsNew() ? "" : emergency ? "Emergency " : "New ") + "Patient Information";
  DialogButtons1.Extra.Visible = Opened.may_book;
  if (Opened.IsNew()) {
    ReadNew();
  } else {
    ReadExisting();
  }
  if (Closed()) {
    return;
  }
  Referral.Show();
  Provider.Show();
  BirthDate.Show();
  SexTitle.Show();
  ShowFeeSchedule();
  Contacts_Setup();
}

void patScreen_SM::ReadExisting() {
  pID = Opened.id;
  if (pID == 0 || !Patient_SM.Read(pID)) {
    Tell(NoSuchPatient(std::to_string(pID)), forms::Icon::Information);
    Close();
    return;
  }
  Hold("PATABLE", pID);
}

// A name that was carried over is not thrown away without asking.
void patScreen_SM::ReadNew() {
  Patient_SM.Read(0);
  const auto setting = [this](std::string_view key) { return context_.session.OfficeSetting(kSetup, key); };
  Label5[kIsPatient].Caption = "1";
  Label5[kAccountType].Caption = setting("PAT_AC_TYP");
  Text1[kMedicalAlert].Text = setting("PAT_MED_ALT");
  const auto person = [&setting](std::string_view key) { return session::ToId(session::Value(setting(key))); };
  const std::int32_t provider = person("OFF_DEF_PRO") != 0 ? person("OFF_DEF_PRO") : person("OFF_PRA_PRO");
  Label5[kProviderId].Caption = provider != 0 ? std::to_string(provider) : std::string();
  Patient_SM.MarkWritten();
  const auto entered = ParseNameOrId(Opened.typed_name);
  if (const auto* name = std::get_if<TypedName>(&entered)) {  // a number is an ID, never a name
    Text1[kLastName].Text = forms::Fitting(name->last, Text1[kLastName].MaxLength);
    Text1[kFirstName].Text = forms::Fitting(name->first, Text1[kFirstName].MaxLength);
  }
}

void patScreen_SM::ShowFeeSchedule() {
  const std::string& schedule = Label5[kFeeSchedule].Caption;
  Label5[kFeeScheduleText].Caption =
      forms::WithMnemonic("Fee Schedule : " + (schedule.empty() ? "( none )" : schedule), 'u');
}

std::string patScreen_SM::FullName() const {
  return Text1[kFirstName].Text.get() + " " + Text1[kLastName].Text.get();
}

editing::EditingForm::ClosingQuestion patScreen_SM::OnClosing() const {
  if (Adding()) {
    return {.text = "New Patient, " + FullName() + "\r\n" +
                    ", has not been saved. This new entry will be discarded if you answer No.\r\n"
                    "Do you want to save now?",
            .offers_to_save = true};
  }
  return {.text = "Current changes to " + FullName() + " have not been saved. Save now?", .offers_to_save = true};
}

// OK, and "Save and Book".
void patScreen_SM::SaveFromButton(bool and_book) {
  if (Adding() || Unsaved()) {
    const std::string question = Adding() ? "Save this new record?" : "Save changes to this record?";
    if (!Confirm(question, "Save Changes") || !Save()) {
      return;
    }
  }
  ShowSaveNBookAppt = and_book;
  Close();
}

bool patScreen_SM::Check() {
  if (!BirthDate.Take() || !SexTitle.Take()) {
    return false;
  }
  for (forms::TextBox& box : Text1) {
    box.Text = std::string(forms::Trim(box.Text.get()));
  }
  if (Text1[kLastName].Text->empty() && Text1[kFirstName].Text->empty()) {
    Tell("First and last name cannot be blank.", forms::Icon::Information);
    Text1[kLastName].SetFocus();
    return false;
  }
  if (Patient_SM.Changed(Text1[kMedicalAlert])) {
    Label5[kAlertUpdated].Caption = forms::FormatIso(context_.session.Today());
  }
  return true;
}

void patScreen_SM::Insert() {
  pID = Patient_SM.Insert();
  Caption = "Patient Information";
}

void patScreen_SM::WriteNickname() {
  statements_.Execute("UPDATE PATABLE SET pNICNAM=" + Literal(Text1[kFirstName].Text.get()) +
                      " WHERE pID=" + Literal(pID) + statements_.Office(" and (OfficeID = ", ") "));
}

session::Outcome patScreen_SM::Ended() const {
  return {.end = Saved ? session::Outcome::End::Saved : session::Outcome::End::Cancelled,
          .id = pID,
          .save_and_book = ShowSaveNBookAppt};
}

void patScreen_SM::picSwapName_Click() {
  if (MayModify()) {
    const std::string last = Text1[kLastName].Text;
    Text1[kLastName].Text = Text1[kFirstName].Text.get();
    Text1[kFirstName].Text = last;
  }
}

void patScreen_SM::PickMedicalAlert() {
  if (!MayModify()) {
    return;
  }
  const auto picked = context_.screens.ShowPickList(session::PickList::MedicalAlert, "Medical Alert");
  const std::string current = Text1[kMedicalAlert].Text;
  if (!picked || picked->text == current) {
    return;
  }
  const auto answer = context_.user.Ask({.text = "Update Medical Alert?\r\n"
                                                 "Click 'Yes' to append to the existing data.\r\n"
                                                 "Click 'No' to replace the existing data.\r\n"
                                                 "Click 'Cancel' to discard the changes.",
                                         .buttons = forms::kYesNoCancel,
                                         .icon = forms::Icon::Question});
  if (answer == forms::Answer::Cancel) {
    return;
  }
  const bool append = answer == forms::Answer::Yes && !current.empty();
  const std::string alert = append ? current + ", " + picked->text : picked->text;
  if (const int room = Text1[kMedicalAlert].MaxLength;
      room > 0 && forms::CharacterCount(alert) > static_cast<std::size_t>(room)) {
    Tell("The medical alert has room for " + std::to_string(room) +
             " characters. Please shorten it first; it was not changed.",
         forms::Icon::Exclamation);
    return;
  }
  Text1[kMedicalAlert].Text = alert;
  Label5[kAlertUpdated].Caption = forms::FormatIso(context_.session.Today());
}

void patScreen_SM::PickFeeSchedule() {
  if (!MayModify()) {
    return;
  }
  const auto picked = context_.screens.ShowPickList(session::PickList::FeeSchedule, "Fee Schedule");
  const std::string current = Label5[kFeeSchedule].Caption;
  if (picked && picked->code != current &&
      Confirm("Change this patient from Fee Schedule " + current + " to " + picked->code + " ?")) {
    Label5[kFeeSchedule].Caption = picked->code;
    ShowFeeSchedule();
  }
}

}  // namespace people
