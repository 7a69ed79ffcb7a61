#include "people/patScreen_SM.h"

#include "data/literal.h"
#include "forms/text.h"
#include "people/frmContacts.h"
#include "people/name_entry.h"

namespace people {
namespace {

using editing::Side;

constexpr std::string_view kSetup = "DEFAULT_OFFICE_SETUP";
constexpr std::string_view kCaption = "Patient Information";
constexpr std::string_view kExitLine = "Do you want to save now?";

struct BoundText {
  std::size_t index;
  const char* column;
};
constexpr std::array kTextColumns = {BoundText{0, "pLASNAM"}, BoundText{1, "pFIRNAM"}, BoundText{3, "pSEX"},
                                     BoundText{4, "pTTL"},    BoundText{6, "pSSN"},    BoundText{7, "pHOMPHO"},
                                     BoundText{8, "pBUSPHO"}, BoundText{9, "pADD1"},   BoundText{10, "pADD2"},
                                     BoundText{11, "pCIT"},   BoundText{12, "pSTA"},   BoundText{13, "pZIP"},
                                     BoundText{15, "pMEDALE"}};
constexpr std::array kLabelColumns = {BoundText{0, "pMEDALEUPD"},    BoundText{1, "pTypPat"},
                                      BoundText{2, "pTypDoc"},       BoundText{3, "pTypRef"},
                                      BoundText{4, "pTypPhy"},       BoundText{5, "pTypEmp"},
                                      BoundText{6, "pTypX1"},        BoundText{7, "pTypX2"},
                                      BoundText{8, "pBIRDAT"},       BoundText{9, "pREFIND"},
                                      BoundText{10, "pFAMHEAIND"},   BoundText{11, "pPROIND"},
                                      BoundText{12, "pPHY1"},        BoundText{13, "pPHY2"},
                                      BoundText{19, "pGPDenFeeTyp"}, BoundText{20, "pGPDenFeeTypPerm"},
                                      BoundText{21, "pACCTYP"}};
constexpr std::array kCaptions = {
    "&Last Name", "&First Name", "&Birth Date", "Se&x", "&Title", "Referred By :", "SS&N",        "Home Phone",
    "Work Phone", "&Address",    "Address 2",   "City", "State",  "&ZIP Code",     "&Provider :", "&Medical Alert"};

}  // namespace

patScreen_SM::patScreen_SM(const session::ScreenContext& context)
    : Form("patScreen_SM"),
      ZipCodes(context),
      Patient_SM(context.session, "Patable", "pID"),
      context_(context),
      statements_(context.session),
      contacts_(context.session) {
  for (const BoundText& bound : kTextColumns) {
    Patient_SM.Bind(Text1.at(bound.index), bound.column);
  }
  for (const BoundText& bound : kLabelColumns) {
    Patient_SM.Bind(Label5.at(bound.index), bound.column);
  }
  Register();
  Wire();
}

void patScreen_SM::Register() {
  Add("Text1", Text1);
  Add("Label1", Label1);
  Add("Label5", Label5);
  Add("Command3D1", Command3D1);
  Add("Command3D2", Command3D2);
  Add("cmdContact", cmdContact);
  Add("Name_List", Name_List);
  Add("dbcNameSearch", dbcNameSearch);
  ZipCodes.Attach(*this, {Text1[kCity], Text1[kState], Text1[kZip]});
  Add("picSwapName", picSwapName);
  Add("PictureBox1", PictureBox1);
  Add("Label3", Label3);
  Add("DialogButtons1", DialogButtons1);

  for (std::size_t i = 0; i < Label1.size(); ++i) {
    Label1.at(i).Caption = kCaptions.at(i);
  }
  for (const BoundText& bound : kLabelColumns) {
    Label5.at(bound.index).Visible = false;
  }
  for (forms::Button& button : Command3D1) {
    button.Caption = "...";
    button.ToolTip = "DATABASE LIST, Left mouse - Database list";
  }
  Command3D2.Caption = "...";
  Command3D2.ToolTip = "DATABASE LIST, Left mouse - Database list";
  cmdContact.Caption = "&Contacts...";
  picSwapName.Picture = "SWAP-16X16.PNG";
  picSwapName.ToolTip = " Swap first and last name ";
  dbcNameSearch.Editable = true;
  dbcNameSearch.Container = &Name_List;
  Name_List.Visible = false;
  Label3.Container = &PictureBox1;
  PictureBox1.Visible = false;
  DialogButtons1.Extra.Caption = "&Save and Book";

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

session::Outcome patScreen_SM::Ended() const {
  return {.end = Saved ? session::Outcome::End::Saved : session::Outcome::End::Cancelled,
          .id = pID,
          .save_and_book = ShowSaveNBookAppt};
}

void patScreen_SM::OnLoad() {
  const std::string_view prefix = !Adding()                                          ? ""
                                  : Opened.mode == session::Opening::Mode::Emergency ? "Emergency "
                                                                                     : "New ";
  Caption = std::string(prefix) + std::string(kCaption);
  DialogButtons1.Extra.Visible = Opened.may_book;
  const bool loaded = editing::Attempt(context_.user, [this] {
    if (Adding()) {
      LoadNew();
    } else {
      LoadRecord();
    }
    if (Closed()) {
      return;
    }
    ShowPerson(kReferral, kReferralId);
    ShowPerson(kProvider, kProviderId);
    ShowAge();
    ShowFeeSchedule();
    Contacts_Setup();
    Patient_SM.MarkWritten();
    // A name that was carried over is not thrown away without asking.
    Text1[kLastName].DataChanged = Adding() && !Text1[kLastName].Text->empty();
  });
  if (!loaded) {
    Close();
  } else if (!Closed()) {
    Text1[kLastName].SetFocus();
  }
}

void patScreen_SM::LoadRecord() {
  pID = Opened.id;
  if (pID == 0 || !Patient_SM.Read(pID)) {
    context_.user.Tell("Patient " + std::to_string(pID) + " was not found in the database.",
                       std::string(forms::kSuiteTitle), forms::Icon::Information);
    Close();
    return;
  }
  hold_.emplace(context_.session, "PATABLE", pID);
  read_only_ = !hold_->Held();
  if (read_only_) {
    Caption = Caption.get() + " - Read only";
    for (forms::TextBox& box : Text1) {
      box.ReadOnly = true;
    }
  }
}

void patScreen_SM::LoadNew() {
  Patient_SM.Read(0);
  const auto setting = [this](std::string_view key) { return context_.session.OfficeSetting(kSetup, key); };
  Label5[kIsPatient].Caption = "1";
  Label5[kAccountType].Caption = setting("PAT_AC_TYP");
  Text1[kMedicalAlert].Text = setting("PAT_MED_ALT");
  const auto person = [&setting](std::string_view key) { return session::ToId(session::Value(setting(key))); };
  const std::int32_t provider = person("OFF_DEF_PRO") != 0 ? person("OFF_DEF_PRO") : person("OFF_PRA_PRO");
  Label5[kProviderId].Caption = provider != 0 ? std::to_string(provider) : std::string();
  const auto entered = ParseNameOrId(Opened.typed_name);
  const auto* typed = std::get_if<people::TypedName>(&entered);  // a number is an ID, never a name
  const people::TypedName name = typed != nullptr ? *typed : people::TypedName();
  Text1[kLastName].Text = forms::Left(name.last, static_cast<std::size_t>(Text1[kLastName].MaxLength.get()));
  Text1[kFirstName].Text = forms::Left(name.first, static_cast<std::size_t>(Text1[kFirstName].MaxLength.get()));
}

void patScreen_SM::ShowPerson(Field field, HiddenField id) {
  Text1.at(field).Text = NameOf(session::ToId(session::Value(Label5.at(id).Caption.get())));
}

std::string patScreen_SM::NameOf(std::int32_t person) const {
  if (person == 0) {
    return {};
  }
  const auto row = statements_.Select("SELECT pLASNAM, pFIRNAM FROM PATable WHERE pID=" + data::Literal(person) +
                                      statements_.Office());
  if (row->Eof()) {
    return {};
  }
  return LastFirst(row->Get(0), row->Get(1));
}

void patScreen_SM::ShowAge() {
  const auto birth = forms::ParseIso(Label5[kBirthDay].Caption.get());
  Text1[kBirthDate].Text = birth ? forms::FormatDashed(forms::DateOf(*birth)) : std::string();
  birth_date_shown_ = Text1[kBirthDate].Text;
  const auto age = birth ? forms::AgeAt(forms::DateOf(*birth), context_.session.Today()) : std::nullopt;
  Label5[kAgeText].Caption = age ? " Date : " + birth_date_shown_ + " Age : " + forms::FormatAge(*age) : std::string();
}

void patScreen_SM::ShowFeeSchedule() {
  const std::string& schedule = Label5[kFeeSchedule].Caption;
  Label5[kFeeScheduleText].Caption = "Fee Schedule : " + (schedule.empty() ? "( none )" : schedule);
}

void patScreen_SM::Contacts_Setup() {
  const std::int32_t person = Patient_SM.Id();
  if (person != 0 && !read_only_) {
    contacts_.Setup(person);
  } else {
    contacts_.Read(person);
  }
  const auto show = [this](Field field, Side side) {
    Label1.at(field).Caption = contacts_.SideCaption(side);
    Text1.at(field).MaxLength = contacts_.DefinedSize(side, contacts_.Selected(side));
  };
  show(kHomePhone, Side::Home);
  show(kWorkPhone, Side::Work);
}

void patScreen_SM::Contacts_Save() {
  contacts_.Save(pID, {{Side::Home, Text1[kHomePhone].Text}, {Side::Work, Text1[kWorkPhone].Text}});
}

bool patScreen_SM::Unsaved() const {
  return !read_only_ && (write_pending_ || Patient_SM.Changed() || Text1[kBirthDate].Text.get() != birth_date_shown_);
}

bool patScreen_SM::QueryClose() {
  if (!Unsaved()) {
    return true;
  }
  const std::string text = Adding() ? "New Patient, " + FullName() + "\r\n" +
                                          ", has not been saved. This new entry will be discarded if you answer No." +
                                          "\r\n" + std::string(kExitLine)
                                    : "Current changes to " + FullName() + " have not been saved. Save now?";
  switch (context_.user.Ask({.text = text, .buttons = forms::kYesNoCancel, .icon = forms::Icon::Question})) {
    case forms::Answer::Yes:
      return Save();
    case forms::Answer::No:
      return true;
    default:
      return false;
  }
}

std::string patScreen_SM::FullName() const {
  return Text1[kFirstName].Text.get() + " " + Text1[kLastName].Text.get();
}

// OK, and "Save and Book".
void patScreen_SM::SaveFromButton(bool and_book) {
  if (Adding() || Unsaved()) {
    const auto answer = context_.user.Ask({.text = Adding() ? "Save this new record?" : "Save changes to this record?",
                                           .title = "Save Changes",
                                           .buttons = forms::kYesNo,
                                           .icon = forms::Icon::Question});
    if (answer != forms::Answer::Yes || !Save()) {
      return;
    }
  }
  ShowSaveNBookAppt = and_book;
  Close();
}

bool patScreen_SM::Save() {
  if (!TakeBirthDate() || !TakeSex()) {
    return false;
  }
  for (forms::TextBox& box : Text1) {
    box.Text = std::string(forms::Trim(box.Text.get()));
  }
  if (Text1[kLastName].Text->empty() && Text1[kFirstName].Text->empty()) {
    context_.user.Tell("First and last name cannot be blank.", std::string(forms::kSuiteTitle),
                       forms::Icon::Information);
    Text1[kLastName].SetFocus();
    return false;
  }
  bool written = false;
  return editing::Attempt(context_.user, [&] { written = Write(); }) && written;
}

// A failed statement leaves what it did not reach marked, and the next save goes on from there. False when the row is
// gone.
bool patScreen_SM::Write() {
  const forms::WaitText wait(context_.user, "  Saving - Please Wait  ");
  if (Text1[kMedicalAlert].DataChanged) {
    Label5[kAlertUpdated].Caption = forms::FormatIso(context_.session.Today());
  }
  nickname_pending_ = nickname_pending_ || Text1[kFirstName].DataChanged || Adding();
  write_pending_ = true;
  if (Adding()) {
    pID = Patient_SM.Insert();
    Saved = true;
    Opened.mode = session::Opening::Mode::Existing;
    Caption = std::string(kCaption);
    hold_.emplace(context_.session, "PATABLE", pID);
  }
  if (nickname_pending_) {
    WriteNickname();
    nickname_pending_ = false;
  }
  Patient_SM.Update();
  if (!contacts_.Save(pID, {{Side::Home, Text1[kHomePhone].Text}, {Side::Work, Text1[kWorkPhone].Text}})) {
    context_.user.Tell("Another user has deleted this patient. Your entries are still on the screen.",
                       std::string(forms::kSuiteTitle), forms::Icon::Exclamation);
    return false;
  }
  birth_date_shown_ = Text1[kBirthDate].Text;
  write_pending_ = false;
  Saved = true;
  context_.session.RecordHandOff("pID", "PaTable", pID);
  return true;
}

void patScreen_SM::WriteNickname() {
  statements_.Execute("UPDATE PATABLE SET pNICNAM=" + data::Literal(Text1[kFirstName].Text.get()) +
                      " WHERE pID=" + data::Literal(pID) + statements_.Office(" and (OfficeID = ", ") "));
}

void patScreen_SM::EditContacts() {
  if (Adding()) {
    const auto answer = context_.user.Ask(
        {.text = "Before editing contact information, this new entry must be saved.\r\n" + std::string(kExitLine),
         .buttons = forms::kYesNo,
         .icon = forms::Icon::Question});
    if (answer != forms::Answer::Yes || !Save()) {
      return;
    }
  }
  frmContacts dialog(context_);
  dialog.pID = pID;
  dialog.ReadOnly = read_only_;
  if (Text1[kHomePhone].DataChanged) {
    dialog.Typed[Side::Home] = Text1[kHomePhone].Text;
  }
  if (Text1[kWorkPhone].DataChanged) {
    dialog.Typed[Side::Work] = Text1[kWorkPhone].Text;
  }
  context_.user.Show(dialog);
  if (dialog.Saved) {
    editing::Attempt(context_.user, [this] { ShowContacts(); });
  }
}

// The visible numbers as the contact dialog wrote them; a change to another field stays as it is.
void patScreen_SM::ShowContacts() {
  Contacts_Setup();
  const auto show = [this](Field field, Side side) {
    Text1.at(field).Text = contacts_.Value(side, contacts_.Selected(side));
    Text1.at(field).DataChanged = false;
  };
  show(kHomePhone, Side::Home);
  show(kWorkPhone, Side::Work);
}

}  // namespace people
