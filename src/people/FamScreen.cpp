#include "people/FamScreen.h"

#include <algorithm>

#include "data/families.h"
#include "editing/customary_form.h"
#include "editing/person_deletion.h"
#include "forms/text.h"
#include "forms/us_numbers.h"
#include "people/name_entry.h"

namespace people {
namespace {

using forms::CheckState;

constexpr std::array kTextColumns = {
    BoundField{FamScreen::kLastName, "pLASNAM"},
    BoundField{FamScreen::kFirstName, "pFIRNAM"},
    BoundField{FamScreen::kSex, "pSEX"},
    BoundField{FamScreen::kTitle, "pTTL"},
    BoundField{FamScreen::kSsn, "pSSN"},
    BoundField{FamScreen::kHomePhone, "pHOMPHO"},
    BoundField{FamScreen::kWorkPhone, "pBUSPHO"},
    BoundField{FamScreen::kAddress1, "pADD1"},
    BoundField{FamScreen::kAddress2, "pADD2"},
    BoundField{FamScreen::kCity, "pCIT"},
    BoundField{FamScreen::kState, "pSTA"},
    BoundField{FamScreen::kZip, "pZIP"},
    BoundField{FamScreen::kLicence, "pDRILIC"},
    BoundField{FamScreen::kCardType, "pCRECARTYP"},
    BoundField{FamScreen::kCardNumber, "pCRECARNUM", data::kCardNumber},
    BoundField{FamScreen::kBillingTitle, "pBILTTL"},
    BoundField{FamScreen::kAccountType, "pACCTYP"},
    BoundField{FamScreen::kNextStatement, "pNEXSTADAT", data::kComingDate},
};

constexpr std::string_view kWhose = "this persons";

// The columns that a family shares, but for the home phone, which may stand behind another contact.
constexpr std::array kSharedColumns = {BoundField{FamScreen::kAddress1, "pADD1"},
                                       BoundField{FamScreen::kAddress2, "pADD2"}, BoundField{FamScreen::kCity, "pCIT"},
                                       BoundField{FamScreen::kState, "pSTA"}, BoundField{FamScreen::kZip, "pZIP"}};

// `pTypPat` as the box shows it: a patient, a patient of the past, and one who is responsible only.
struct PatientState {
  CheckState state;
  std::string_view stored;
  std::string_view told;
};
constexpr std::array kPatientStates = {PatientState{CheckState::On, "1", "patient"},
                                       PatientState{CheckState::Mixed, "2", "former patient"},
                                       PatientState{CheckState::Off, "3", "responsible person"}};

std::string ToldPatientState(const std::string& stored) {
  const auto* known = std::ranges::find(kPatientStates, stored, &PatientState::stored);
  return known == kPatientStates.end() ? stored : std::string(known->told);
}

}  // namespace

FamScreen::FamScreen(const session::ScreenContext& context)
    : EditingForm("FamScreen", context),
      Person(context.session, Text1[kLastName], Text1[kFirstName]),
      BirthDate(context, {.box = Text1[kBirthDate],
                          .calendar = Command3D1[kPickBirthDate],
                          .day = Label5[kBirthDay],
                          .age = Label5[kAgeText],
                          .dated = false}),
      SexTitle(context, {Text1[kSex], Text1[kTitle], Command3D1[kPickSexTitle]}, kWhose),
      Phones(context, {Text1[kHomePhone], Text1[kWorkPhone], cmdContact}, Person),
      ZipCodes(context, {Text1[kCity], Text1[kState], Text1[kZip], Command3D2}),
      Name_List(context),
      Referral(context, ReferralOf(kWhose), Text1[kReferral], Command3D1[kPickReferral], Label5[kReferralId]),
      Provider(context, ProviderOf(kWhose), Text1[kProvider], Command3D1[kPickProvider], Label5[kProviderId]),
      NextStatement(context, {Text1[kNextStatement], Command3D1[kPickNextStatement]}, data::kComingDate),
      Employers(context, Person),
      Members(context, Person, Label5[kFamilyHeadId]),
      PictureBox1(context),
      duplicate_(context),
      family_(context) {
  Person.Bind(Text1, kTextColumns);
  Person.BindHidden(Label5);
  Label5[kIsPatient].Told = ToldPatientState;
  Register();
  SetHelp();
  Wire();
  WireBilling();
  WireFamily();
  WireSaving();
}

void FamScreen::Wire() {
  Name_List.Attach(Referral);
  Name_List.Attach(Provider);
  ZipCodes.BeforeDeleteKey = [this] { return Confirm("Do you want delete this City, State, and Zip Code?"); };
  Phones.SaveNew = [this] { return Save(); };
  Text1[kSsn].Leave = [this] { editing::TakeCustomaryForm(context_.session, Person, Text1[kSsn], forms::FormatSsn); };
  chkPersonIsPatient.Click = [this] { TakeIsPatient(); };
  picSwapName.Click = [this] { picSwapName_Click(); };
  DialogButtons1.OK.Click = [this] { SaveFromButton(); };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
  DialogButtons1.Delete.Click = [this] { Delete(); };
  DialogButtons1.Help.Click = [this] { PictureBox1.Show(); };
}

void FamScreen::WireFamily() {
  Employers.Attach(Name_List);
  Employers.Whose = [this] { return Person.FullName(); };
  Employers.Save = [this] { return Save(); };
  Members.Unsaved = [this] { return Unsaved(); };
  Members.Save = [this] { return Save(); };
  Members.RequireHold = [this] { RequireHold(); };
  Members.FamilyChanged = [this](bool written) {
    Saved = Saved || written;
    NotAHead = false;  // the row tells now
    ShowRole();
  };
}

void FamScreen::WireSaving() {
  Edits(Person);
  const auto always = [] { return true; };
  const auto adding = [this] { return Adding(); };
  OnSave(adding, [this] { Insert(); });
  OnSave(adding, [this] { Hold("PATABLE", pID); });
  OnSave(adding, [this] { HeadHimself(); });
  OnSave(
      [this] {
        NoteSharedChanges();
        return true;
      },
      [this] { Update(); });
  OnSave([this] { return Person.NicknameChanged(); }, [this] { Person.WriteNickname(); });
  OnSave(always, [this] { Contacts_Save(); });
  OnSave(always, [this] { context_.session.RecordHandOff("pID", "PaTable", pID); });
  OnSave(always, [this] { Members.Show(); });
}

void FamScreen::Read() {
  if (Opened.IsNew()) {
    ReadNew();
  } else {
    ReadExisting();
  }
  if (Closed()) {
    return;
  }
  ObjParent = Opened.owner;
  GuardStatement();
  ShowRole();
  ShowReferences();
  Employers.Read();
  Members.Show();
  Contacts_Setup();
}

// Held before it is read: what is shown is what the one who held it before has left.
void FamScreen::ReadExisting() {
  Caption = "Family Information";
  pID = Opened.id;
  if (pID != 0) {
    Hold("PATABLE", pID);
  }
  if (pID == 0 || !Person.Read(pID)) {
    Tell(NoSuchPatient(std::to_string(pID)), forms::Icon::Information);
    Close();
    return;
  }
  if (Opened.joins && Label5[kIsPatient].Caption.get() < "1") {
    Label5[kIsPatient].Caption = "1";
  }
}

void FamScreen::ReadNew() {
  Caption = "New Family Head";
  DialogButtons1.Delete.Enabled = false;
  Person.Read(0);
  Label5[kIsPatient].Caption = "1";
  Text1[kAccountType].Text = context_.session.OfficeSetting("DEFAULT_OFFICE_SETUP", "PAT_AC_TYP");
  Person.MarkWritten();
}

void FamScreen::ShowReferences() {
  Referral.Show();
  Provider.Show();
  BirthDate.Show();
  SexTitle.Show();
  ShowIsPatient();
}

bool FamScreen::IsHead() const {
  const std::int32_t head = session::ToId(session::Value(Label5[kFamilyHeadId].Caption.get()));
  return head == 0 || head == pID;
}

bool FamScreen::Shares() const {
  return !Adding() && !NoMessage && IsHead();
}

void FamScreen::ShowRole() {
  Label2.Caption = IsHead() && !NotAHead ? "Family Head" : "Family Member";
}

void FamScreen::ShowIsPatient() {
  const std::string& stored = Label5[kIsPatient].Caption;
  const auto* known = std::ranges::find(kPatientStates, stored, &PatientState::stored);
  chkPersonIsPatient.Value = known == kPatientStates.end() ? CheckState::Off : known->state;
}

void FamScreen::TakeIsPatient() {
  if (MayModify()) {
    const auto* chosen = std::ranges::find(kPatientStates, chkPersonIsPatient.Value.get(), &PatientState::state);
    Label5[kIsPatient].Caption = std::string(chosen->stored);
  }
  ShowIsPatient();
}

editing::EditingForm::ClosingQuestion FamScreen::OnClosing() const {
  if (!Differs()) {
    return EditingForm::OnClosing();
  }
  if (Adding()) {
    return {.text = "New entry, " + Person.FullName() + ", has not been saved. Save now?", .offers_to_save = true};
  }
  return {.text = "Current changes to " + Person.FullName() + " have not been saved. Save now?",
          .offers_to_save = true};
}

void FamScreen::SaveFromButton() {
  if (Adding() || Unsaved()) {
    if (!Check() || !Confirm(Adding() ? "Save this new entry?" : "Save changes to this record?") || !Save()) {
      return;
    }
  }
  Close();
}

bool FamScreen::Check() {
  if (!BirthDate.Take() || !SexTitle.Take() || !NextStatement.Take()) {
    return false;
  }
  Person.Trim();
  for (const Field name : {kLastName, kFirstName}) {
    if (Text1.at(name).Text->empty()) {
      Tell("First and last name cannot be blank.", forms::Icon::Information);
      Text1.at(name).SetFocus();
      return false;
    }
  }
  Person.NicknameFollows();
  Phones.Follow();
  return true;
}

bool FamScreen::Agreed() {
  if (!Adding()) {
    return true;
  }
  const auto birth = forms::ParseIso(Label5[kBirthDay].Caption.get());
  return duplicate_.MayAdd(*this, {.last = Text1[kLastName].Text.get(),
                                   .first = Text1[kFirstName].Text.get(),
                                   .birth = birth ? std::optional(forms::DateOf(*birth)) : std::nullopt});
}

void FamScreen::OnTaken() {
  Person.ShowTaken();
  Phones.ShowTaken();
  ShowReferences();
  Employers.ShowTaken();
}

void FamScreen::Insert() {
  pID = Person.Insert();
  Caption = "Family Information";
  DialogButtons1.Delete.Enabled = true;
}

void FamScreen::HeadHimself() {
  data::Families(context_.session).Make(data::Families::HeadingHimself(pID));
  Person.Refresh({&Label5[kFamilyHeadId]});
}

// A home phone that was entered among the contacts waits for the family.
bool FamScreen::Differs() const {
  return Person.Changed() || BirthDate.Pending() || (Phones.HomePhoneEntered() && Shares() && Members.Any());
}

// His row, what is held and covered through his links, and what his family shares with him: together, or not at all.
void FamScreen::Update() {
  const FamilyUpdate::Plan members = family_.Offer(pID, shared_);
  session::Transaction transaction(context_.session.Connection());
  const auto entries = Employers.Follow();
  Person.Write();
  family_.Write(members);
  for (const session::LogEntry& entry : entries) {
    context_.session.Log(entry);
  }
  transaction.Commit();
  Person.MarkUpdated();
  Employers.Followed();
  shared_.clear();
  family_.HandOff(members);
}

// What a head's members share with him. They are told the latest of what they have not been told yet.
void FamScreen::NoteSharedChanges() {
  if (!Shares()) {
    return;
  }
  const auto note = [this](data::Words column, const std::optional<std::string>& typed, const std::string& shown) {
    const auto noted = std::ranges::find(shared_, column.Text(), [](const auto& one) { return one.column.Text(); });
    if (noted != shared_.end()) {
      noted->value = shown;
    } else if (typed) {
      shared_.push_back({column, *typed});
    }
  };
  for (const BoundField& shared : kSharedColumns) {
    const forms::TextBox& box = Text1.at(shared.index);
    const std::string shown = forms::Fitting(box.Text.get(), box.MaxLength);
    note(shared.column, Person.Changed(box) ? std::optional(shown) : std::nullopt, shown);
  }
  note("pHomPho1", Phones.NewHomePhone(), Phones.HomePhone());
}

// He is held as long as the screen is open.
void FamScreen::Delete() {
  if (!context_.session.HasRight("DELETE-PATIENT")) {
    Tell("You have no right to delete patients.");
    return;
  }
  if (ReadOnly()) {
    Tell("Read only, cannot delete.");
    return;
  }
  Attempt([this] {
    const editing::RecordHold transactions(context_.session, "DTTABLE", pID);
    const auto person = editing::DeletedPerson::Read(statements_, pID);
    const editing::PersonDeletion deletion(context_);
    if (!deletion.MayDelete(person) ||
        (person.IsHead() && !Confirm("Are you sure you want to delete " + person.name + "?", "Patient Deletion"))) {
      return;
    }
    RequireHold();
    transactions.Require();
    deletion.Delete(person);
    deleted_ = true;
    Close();
  });
}

session::Outcome FamScreen::Ended() const {
  if (duplicate_.Instead() != 0) {
    return {.end = session::Outcome::End::Instead, .id = duplicate_.Instead()};
  }
  if (deleted_) {
    return {.end = session::Outcome::End::Deleted};
  }
  return {.end = Saved ? session::Outcome::End::Saved : session::Outcome::End::Cancelled, .id = pID};
}

void FamScreen::picSwapName_Click() {
  if (MayModify()) {
    Person.SwapNames();
  }
}

}  // namespace people
