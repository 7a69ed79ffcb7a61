#include "people/docScreen.h"

#include <algorithm>

#include "data/literal.h"
#include "editing/customary_form.h"
#include "editing/person_deletion.h"
#include "editing/provider_deletion.h"
#include "editing/record_hold.h"
#include "forms/text.h"
#include "forms/us_numbers.h"

namespace people {
namespace {

using data::Words;
using session::RecordKind;

// Positions of the type flags.
enum Type : std::size_t { kPatient, kProvider, kReferral, kPhysician, kEmployee };
constexpr std::array kTypeColumns = {Words("pTypPat"), Words("pTypDoc"), Words("pTypRef"), Words("pTypPhy"),
                                     Words("pTypEmp"), Words("pTypX1"),  Words("pTypX2")};

// What makes one kind of persons differ from another.
struct Kind {
  RecordKind record;
  std::string_view caption;
  Type type;
  std::string_view right = {};  // to change their names; none is needed without
  std::string_view right_what = {};
  std::string_view plural = {};
};
constexpr std::array kKinds = {
    Kind{RecordKind::Provider, "Provider Information", kProvider, "CHANGE-PRO-NAME", "provider names", "providers"},
    Kind{RecordKind::Referral, "Referred By Information", kReferral, "CHANGE-REF-NAME", "referral names", "referrals"},
    Kind{RecordKind::Physician1, "Physician #1 Information", kPhysician},
    Kind{RecordKind::Physician2, "Physician #2 Information", kPhysician},
    Kind{RecordKind::ReferInOut, "Referred In/ Out Information", kPhysician}};

const Kind& KindOf(RecordKind record) {
  return *std::ranges::find(kKinds, record, &Kind::record);
}

constexpr std::array kTextColumns = {
    Words("pLASNAM"),    Words("pFIRNAM"), Words("pSEX"),       Words("pTTL"),     Words("pProTTL"),   Words("pADD1"),
    Words("pADD2"),      Words("pCIT"),    Words("pSTA"),       Words("pZIP"),     Words("pHOMPHO"),   Words("pBUSPHO"),
    Words("pDOCLIC"),    Words("pDOCEIN"), Words("pDOCREM1"),   Words("pDOCREM2"), Words("pDOCREM3"),  Words("pDOCSPE"),
    Words("pDOCDATEMP"), Words("pSSN"),    Words("pDOCMEDNUM"), Words("pDOCINI"),  Words("pDOCFeeTyp")};

const Kind& KindGuardedBy(std::string_view right) {
  return *std::ranges::find(kKinds, right, &Kind::right);
}

bool IsSet(const std::string& flag) {
  return flag >= "1";
}

}  // namespace

docScreen::docScreen(const session::ScreenContext& context)
    : EditingForm("docScreen", context),
      Patable(context.session, "Patable", "pID"),
      SexTitle(context, {Text1[kSex], Text1[kTitle], Command1}, "", "Sex/Title"),
      Phones(context, {Text1[kHomePhone], Text1[kWorkPhone], cmdContact}, Patable),
      ZipCodes(context, {Text1[kCity], Text1[kState], Text1[kZip], ZipCode1}),
      EmploymentDate(context, {Text1[kEmploymentDate], Command3D1}),
      Employer(context, {Text2[0], Command3, Command4, Label4, EmployerLink}, Patable),
      PictureBox1(context),
      initials_(context, Text1[kInitials], Initials::Asks::Provider),
      numbers_(context, TDBG1),
      duplicate_(context) {
  Bind();
  Register();
  SetHelp();
  Wire();
  WireSaving();
}

void docScreen::Bind() {
  for (std::size_t i = 0; i < Text1.size(); ++i) {
    Patable.Bind(Text1.at(i), kTextColumns.at(i), i == kEmploymentDate ? data::kDate : data::kPlain);
  }
  for (std::size_t i = 0; i < types_.size(); ++i) {
    Patable.Bind(types_.at(i), kTypeColumns.at(i));
  }
  Patable.Bind(cboTaxonomy, "pDOCTAX");
  Patable.Bind(chkHideZEP, "pHidZEP");
  Patable.Bind(EmployerLink, "pEmpID1");
}

void docScreen::Wire() {
  Text1[kSsn].Leave = [this] { editing::TakeCustomaryForm(context_.session, Patable, Text1[kSsn], forms::FormatSsn); };
  Text1[kFeeSchedule].Leave = [this] { TakeFeeSchedule(); };
  PicksFrom(Text1[kProfessionalTitle], Command2, session::PickList::ProfessionalTitle, "Professional Title",
            "Professional Title");
  PicksFrom(Text1[kSpecialty], FR2_CMD_SPE, session::PickList::Specialty, "Specialty Database", "Specialty");
  ZipCodes.BeforeDeleteKey = [this] { return Confirm("Do you want delete this City, State, and Zip Code?"); };
  Phones.SaveNew = [this] { return Save(); };
  Phones.SaveNewTitle = "Save Changes";
  Employer.Whose = [this] { return FullName(); };
  EmploymentDate.AgreesToPick = [this](const std::string& date) {
    return Confirm("Change Employment Date to [ " + date + " ] ?");
  };
  picSwapName.Click = [this] { picSwapName_Click(); };
  DialogButtons1.OK.Click = [this] {
    if (Adding() || Unsaved()) {
      if (!Save()) {
        return;
      }
    } else if (LacksInitials() && !ReadOnly()) {
      RequireHold();
      ProposeInitials();
    }
    Close();
  };
  DialogButtons1.Delete.Click = [this] {
    if (IsProvider()) {
      DeleteProvider();
    } else {
      DeletePerson();
    }
  };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
  DialogButtons1.Help.Click = [this] { PictureBox1.Show(); };
}

// The row's own statement carries everything; those behind it repeat the initials and the contacts.
void docScreen::WireSaving() {
  Edits(Patable);
  const auto always = [] { return true; };
  const auto adding = [this] { return Adding(); };
  OnSave([this] { return Employer.MustOpenLink(); }, [this] { Employer.OpenLink(); });
  OnSave(adding, [this] { Patable.Insert(); });
  OnSave(adding, [this] {
    Hold("PATABLE", Patable.Id());
    OfferDelete();
  });
  const auto initials_changed = [this] { return Patable.Changed(Text1[kInitials]); };
  OnSave(always, [this] { Patable.Update(); });
  OnSave(initials_changed, [this] { initials_.Store(Patable.Id()); });
  OnSave([this] { return numbers_.Changed(); }, [this] { numbers_.Save(Patable.Id()); });
  OnSave(always, [this] { Contacts_Save(); });
  // His name is stored by now.
  OnSave([this] { return LacksInitials(); }, [this] { ProposeInitials(); });
  OnSave(always, [this] { context_.session.RecordHandOff("pID", "PaTable", Patable.Id()); });
}

void docScreen::ProposeInitials() {
  if (initials_.Propose(Patable.Id())) {
    RequireHold();
    initials_.Store(Patable.Id());
    Patable.MarkWritten(Text1[kInitials]);
    Saved = true;
  }
}

void docScreen::PicksFrom(forms::TextBox& box, forms::Button& button, session::PickList list, std::string_view title,
                          std::string_view what) {
  const auto pick = [this, &box, list, title, what] {
    const auto picked = MayModify() ? context_.screens.ShowPickList(list, title) : std::nullopt;
    if (picked && picked->text != box.Text.get() &&
        Confirm("Change " + std::string(what) + " to [ " + picked->text + " ] ?")) {
      box.Text = forms::Fitting(picked->text, box.MaxLength);
    }
    box.SetFocus();
  };
  button.Click = pick;
  box.KeyDown = [pick](forms::Key key) {
    if (key == forms::Key::F9) {
      pick();
    }
    return key == forms::Key::F9;
  };
}

void docScreen::Read() {
  Caption = std::string(KindOf(Opened.kind).caption);
  Frame1.Visible = IsProvider();
  Frame2.Visible = !IsProvider();
  if (Opened.IsNew()) {
    ReadNew();
  } else {
    ReadExisting();
  }
  if (Closed()) {
    return;
  }
  Text1[kFeeSchedule].MaxLength = 1;
  cboTaxonomy.Enabled = !ReadOnly();
  chkHideZEP.Enabled = !ReadOnly();
  numbers_.Read(Patable.Id());
  layout_.Restore("docScreen");
  ShowReferences();
  Contacts_Setup();
  GuardNames();
  OfferDelete();
  if (Opened.IsNew() || Opened.joins) {
    BecomeOneOfThem();
  }
  if (Opened.IsNew()) {
    Patable.MarkWritten();
  }
}

// Held before it is read: what is shown is what the one who held it before has left.
void docScreen::ReadExisting() {
  if (Opened.id != 0) {
    Hold("PATABLE", Opened.id);
  }
  if (Opened.id == 0 || !Patable.Read(Opened.id)) {
    Tell("Person " + std::to_string(Opened.id) + " was not found in the database.", forms::Icon::Information);
    Close();
  }
}

void docScreen::ReadNew() {
  Patable.Read(0);
  if (IsProvider()) {
    Text1[kFeeSchedule].Text = "1";
  }
}

// Providers count as employees; one whom the practice has employed before stays what he is.
void docScreen::BecomeOneOfThem() {
  forms::Label& type = types_.at(KindOf(Opened.kind).type);
  if (!IsSet(type.Caption)) {
    type.Caption = "1";
  }
  if (IsProvider() && !IsSet(types_[kEmployee].Caption)) {
    types_[kEmployee].Caption = "2";
  }
}

// What stands for columns that nobody sees.
void docScreen::ShowReferences() {
  SexTitle.Show();
  if (!IsProvider()) {
    Employer.Show();
  }
}

// A name that is there is another one's to change.
void docScreen::GuardNames() {
  if (ReadOnly() || LackedNameRight().empty()) {
    return;
  }
  LookOnly(Text1[kLastName], [this] { return MayRename(); });
  LookOnly(Text1[kFirstName], [this] { return MayRename(); });
}

// A new one's name is nobody's yet.
std::string_view docScreen::LackedNameRight() const {
  for (const Kind& kind : kKinds) {
    const bool his = kind.record == Opened.kind || IsSet(types_.at(kind.type).Caption);
    if (!Adding() && his && !kind.right.empty() && !context_.session.HasRight(kind.right)) {
      return kind.right;
    }
  }
  return {};
}

bool docScreen::MayRename() const {
  const std::string_view right = LackedNameRight();
  return MayModify() && (right.empty() || HasRight(right, KindGuardedBy(right).right_what));
}

void docScreen::picSwapName_Click() {
  if (MayRename()) {
    const std::string last = Text1[kLastName].Text;
    Text1[kLastName].Text = Text1[kFirstName].Text.get();
    Text1[kFirstName].Text = last;
  }
}

std::string docScreen::FullName() const {
  return Text1[kFirstName].Text.get() + " " + Text1[kLastName].Text.get();
}

bool docScreen::Check() {
  if (!SexTitle.Take() || !EmploymentDate.Take() || !TakeFeeSchedule()) {
    return false;
  }
  Trim();
  if (Text1[kLastName].Text->empty()) {
    Tell("Last name cannot be blank.", forms::Icon::Information);
    Text1[kLastName].SetFocus();
    return false;
  }
  Phones.Follow();
  return true;
}

bool docScreen::TakeFeeSchedule() {
  const std::string& schedule = Text1[kFeeSchedule].Text;
  const bool untouched = !Adding() && schedule.empty() && !Patable.Changed(Text1[kFeeSchedule]);
  if (!IsProvider() || untouched || (schedule.size() == 1 && schedule >= "1" && schedule <= "4")) {
    return true;
  }
  Tell("Incorrect fee schedule '" + schedule + " '. Please enter a number between 1 and 4.");
  Text1[kFeeSchedule].SetFocus();
  return false;
}

// What nobody touched keeps its blanks.
void docScreen::Trim() {
  for (forms::TextBox& box : Text1) {
    if (Patable.Changed(box)) {
      box.Text = std::string(forms::Trim(box.Text.get()));
    }
  }
}

bool docScreen::Agreed() {
  if (!Adding() && numbers_.Changed() &&
      session::IsNull(statements_.SelectValue("SELECT pID FROM PATable WHERE pID=" + data::Literal(Patable.Id()) +
                                              statements_.Office()))) {
    throw editing::Refusal(std::string(editing::kDeletedMeanwhile));
  }
  const bool initials_free = !IsProvider() || !Patable.Changed(Text1[kInitials]) || initials_.Free(Patable.Id());
  return initials_free &&
         (!Adding() || duplicate_.MayAdd(*this, {.last = Text1[kLastName].Text, .first = Text1[kFirstName].Text}));
}

void docScreen::OnTaken() {
  Phones.ShowTaken();
  ShowReferences();
}

session::Outcome docScreen::Ended() const {
  if (duplicate_.Instead() != 0) {
    return {.end = session::Outcome::End::Instead, .id = duplicate_.Instead()};
  }
  if (gone_) {
    return {.end = session::Outcome::End::Deleted};
  }
  return {.end = Saved ? session::Outcome::End::Saved : session::Outcome::End::Cancelled, .id = Patable.Id()};
}

void docScreen::OfferDelete() {
  DialogButtons1.Delete.Visible = !Adding() && !ReadOnly();
}

// A provider stays an employee, with what was changed of him.
void docScreen::DeleteProvider() {
  if (QueryClose() && editing::DeleteProvider(context_, Patable.Id())) {
    Saved = true;
    Close();
  }
}

void docScreen::DeletePerson() {
  const std::string_view right = LackedNameRight();
  if (!MayModify() || (!right.empty() && !HasRight(right, KindGuardedBy(right).plural, "delete"))) {
    return;
  }
  const editing::PersonDeletion deletion(context_);
  const editing::RecordHold hold(context_.session, "PATABLE", Patable.Id());
  const editing::RecordHold transactions_hold(context_.session, "DTTABLE", Patable.Id());
  const editing::DeletedPerson person = editing::DeletedPerson::Read(statements_, Patable.Id());
  const bool agreed = person.patient
                          ? HasRight("DELETE-PATIENT", "patients", "delete") &&
                                Warn("This action will also delete " + person.name + "'s patient entry.")
                          // A member's deletion asks by itself.
                          : !person.IsHead() || Confirm("Are you sure you want to delete " + person.name + "?");
  if (agreed && deletion.MayDelete(person)) {
    hold.Require();
    transactions_hold.Require();
    deletion.Delete(person);
    Saved = true;
    gone_ = true;
    Close();
  }
}

}  // namespace people
