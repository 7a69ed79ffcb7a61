#include "people/patScreen_SM.h"

#include "data/persons.h"
#include "editing/customary_form.h"
#include "forms/text.h"
#include "forms/us_numbers.h"
#include "people/name_entry.h"

namespace people {
namespace {

constexpr std::string_view kSetup = "DEFAULT_OFFICE_SETUP";

constexpr std::array kTextColumns = {BoundField{0, "pLASNAM"}, BoundField{1, "pFIRNAM"}, BoundField{3, "pSEX"},
                                     BoundField{4, "pTTL"},    BoundField{6, "pSSN"},    BoundField{7, "pHOMPHO"},
                                     BoundField{8, "pBUSPHO"}, BoundField{9, "pADD1"},   BoundField{10, "pADD2"},
                                     BoundField{11, "pCIT"},   BoundField{12, "pSTA"},   BoundField{13, "pZIP"},
                                     BoundField{15, "pMEDALE"}};
constexpr std::array kLabelColumns = {BoundField{19, "pGPDenFeeTyp"}, BoundField{20, "pGPDenFeeTypPerm"},
                                      BoundField{21, "pACCTYP"}};

}  // namespace

patScreen_SM::patScreen_SM(const session::ScreenContext& context)
    : EditingForm("patScreen_SM", context),
      Patient_SM(context.session, Text1[kLastName], Text1[kFirstName]),
      BirthDate(context, {Text1[kBirthDate], Command3D1[kPickBirthDate], Label5[kBirthDay], Label5[kAgeText]}),
      SexTitle(context, {Text1[kSex], Text1[kTitle], Command3D1[kPickSexTitle]}, "this patient's"),
      Phones(context, {Text1[kHomePhone], Text1[kWorkPhone], cmdContact}, Patient_SM),
      ZipCodes(context, {Text1[kCity], Text1[kState], Text1[kZip], Command3D2}),
      Name_List(context),
      Referral(context, ReferralOf("this patient's"), Text1[kReferral], Command3D1[kPickReferral], Label5[kReferralId]),
      Provider(context, ProviderOf("this patient's"), Text1[kProvider], Command3D1[kPickProvider], Label5[kProviderId]),
      PictureBox1(context),
      duplicate_(context) {
  Patient_SM.Bind(Text1, kTextColumns);
  Patient_SM.Bind(Label5, kLabelColumns);
  Patient_SM.BindHidden(Label5);
  Register();
  SetHelp();
  Wire();
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
  Command3D1[kPickMedicalAlert].Click = [this] {
    PickMedicalAlert();
    Text1[kMedicalAlert].SetFocus();
  };
  Command3D1[kPickFeeSchedule].Click = [this] { PickFeeSchedule(); };
  picSwapName.Click = [this] { picSwapName_Click(); };
  DialogButtons1.OK.Click = [this] { SaveFromButton(false); };
  DialogButtons1.Extra.Click = [this] { SaveFromButton(true); };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
  DialogButtons1.Help.Click = [this] { PictureBox1.Show(); };

  Text1[kSsn].Leave = [this] {
    editing::TakeCustomaryForm(context_.session, Patient_SM, Text1[kSsn], forms::FormatSsn);
  };
  // The row's own statement carries everything; those behind it repeat the nickname and the contacts.
  Edits(Patient_SM);
  const auto always = [] { return true; };
  const auto adding = [this] { return Adding(); };
  OnSave(adding, [this] { Insert(); });
  OnSave(adding, [this] { Hold("PATABLE", pID); });
  OnSave(always, [this] { Patient_SM.Update(); });
  OnSave([this] { return Patient_SM.NicknameChanged(); }, [this] { Patient_SM.WriteNickname(); });
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
  ShowReferences();
  Contacts_Setup();
}

// What stands for columns that nobody sees.
void patScreen_SM::ShowReferences() {
  Referral.Show();
  ShowSecondReferral();
  Provider.Show();
  BirthDate.Show();
  SexTitle.Show();
  ShowFeeSchedule();
}

// Held before it is read: what is shown is what the one who held it before has left.
void patScreen_SM::ReadExisting() {
  pID = Opened.id;
  if (pID != 0) {
    Hold("PATABLE", pID);
  }
  if (pID == 0 || !Patient_SM.Read(pID)) {
    Tell(NoSuchPatient(std::to_string(pID)), forms::Icon::Information);
    Close();
  } else if (Opened.joins) {
    Label5[kIsPatient].Caption = "1";
  }
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

// The row has one column for a referral. A physician of the patient who is a referral source as well is the second.
void patScreen_SM::ShowSecondReferral() {
  std::string name;
  for (const HiddenField physician : {kPhysician1, kPhysician2}) {
    const std::int32_t id = session::ToId(session::Value(Label5.at(physician).Caption.get()));
    if (name.empty() && id != Referral.Current()) {
      name = data::NameOfReferral(statements_, id);
    }
  }
  Label5[kSecondReferralText].Caption = "Also Referred By : " + name;
  Label5[kSecondReferralText].Visible = !name.empty();
}

void patScreen_SM::ShowFeeSchedule() {
  const std::string& schedule = Label5[kFeeSchedule].Caption;
  Label5[kFeeScheduleText].Caption =
      forms::WithMnemonic("Fee Schedule : " + (schedule.empty() ? "( none )" : schedule), 'u');
}

editing::EditingForm::ClosingQuestion patScreen_SM::OnClosing() const {
  if (Adding()) {
    return {.text = "New Patient, " + Patient_SM.FullName() + "\r\n" +
                    ", has not been saved. This new entry will be discarded if you answer No.\r\n"
                    "Do you want to save now?",
            .offers_to_save = true};
  }
  return {.text = "Current changes to " + Patient_SM.FullName() + " have not been saved. Save now?",
          .offers_to_save = true};
}

// OK, and "Save and Book".
void patScreen_SM::SaveFromButton(bool and_book) {
  if ((Adding() || Unsaved()) && !Check()) {
    return;
  }
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
  Patient_SM.Trim();
  if (Text1[kLastName].Text->empty()) {
    Tell("Last name cannot be blank.", forms::Icon::Information);
    Text1[kLastName].SetFocus();
    return false;
  }
  Patient_SM.NicknameFollows();
  AlertDateFollows();
  Phones.Follow();
  return true;
}

bool patScreen_SM::Agreed() {
  const auto birth = forms::ParseIso(Label5[kBirthDay].Caption.get());
  return !Adding() || duplicate_.MayAdd(*this, {.last = Text1[kLastName].Text,
                                                .first = Text1[kFirstName].Text,
                                                .birth = birth ? std::optional(forms::DateOf(*birth)) : std::nullopt});
}

// Today, for another alert.
void patScreen_SM::AlertDateFollows() {
  forms::Label& updated = Label5[kAlertUpdated];
  updated.Caption = Patient_SM.Changed(Text1[kMedicalAlert]) ? forms::FormatIso(context_.session.Today())
                                                             : Patient_SM.Stored(updated);
}

void patScreen_SM::OnTaken() {
  Patient_SM.ShowTaken();
  AlertDateFollows();
  Phones.ShowTaken();
  ShowReferences();
}

void patScreen_SM::Insert() {
  pID = Patient_SM.Insert();
  Caption = "Patient Information";
}

session::Outcome patScreen_SM::Ended() const {
  if (duplicate_.Instead() != 0) {
    return {.end = session::Outcome::End::Instead, .id = duplicate_.Instead()};
  }
  return {.end = Saved ? session::Outcome::End::Saved : session::Outcome::End::Cancelled,
          .id = pID,
          .save_and_book = ShowSaveNBookAppt};
}

void patScreen_SM::picSwapName_Click() {
  if (MayModify()) {
    Patient_SM.SwapNames();
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
  AlertDateFollows();
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
