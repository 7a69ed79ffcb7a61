#include "recall/eRmdrPersonalSetup.h"

#include <algorithm>
#include <utility>

#include "data/families.h"
#include "data/literal.h"
#include "data/patient_recalls.h"
#include "data/persons.h"
#include "forms/html_tags.h"
#include "recall/contact_summary.h"
#include "recall/frmEreminderContact.h"

namespace recall {
namespace {

using data::ContactOrderOf;
using data::Literal;

std::string NameOfStage(std::int32_t stage) {
  return stage == data::kDueStage            ? "Due Period"
         : stage == data::kStopTrackingStage ? "Stop Tracking"
                                             : "Period " + std::to_string(stage);
}

}  // namespace

eRmdrPersonalSetup::eRmdrPersonalSetup(const session::ScreenContext& context)
    : EditingForm("eRmdrPersonalSetup", context), orders_(context.session), notes_(context.session) {
  Register();
  Wire();
}

void eRmdrPersonalSetup::Register() {
  Caption = "Patient Reminder Setup";
  RegisterPages();
  const auto on = [this](forms::Panel& panel, const std::string& name, forms::Control& control) {
    control.Container = &panel;
    Add(name, control);
  };
  Add("stInfo", stInfo);
  on(stInfo, "lblInfo", lblInfo);
  on(stInfo, "cmdContact", cmdContact);
  Add("stNotes", stNotes);
  on(stNotes, "lblNotes", lblNotes);
  on(stNotes, "qe", qe);
  Add("chkApplyToFamily", chkApplyToFamily);
  Add("db", db);
  cmdContact.Caption = "Phones and e-&mails...";
  lblNotes.Caption = "&Notes (" + std::string(data::kReminderNoteKind) + ")";
  qe.Heading = &lblNotes;
  db.Help.Visible = false;
  Properties["PatientID"] = {[this] { return std::to_string(PatientID); },
                             [this](const std::string& text) { PatientID = session::ToId(session::Value(text)); }};
  Properties["ChangeMade"] = {[this] { return ChangeMade ? "True" : "False"; }, nullptr};
}

void eRmdrPersonalSetup::RegisterPages() {
  Add("tabKinds", tabKinds);
  tabKinds.AccessibleName = "Kinds of reminders";
  const auto page = [this](forms::Panel& section, const std::string& name, ExcludedContact& kind,
                           const std::string& kind_name, const std::string& caption) {
    section.Caption = caption;
    Add(name, section);
    tabKinds.AddPage(section);
    kind.Container = &section;
    Add(kind_name, kind);
  };
  page(stRecall, "stRecall", ecRecall, "ecRecall", "Recall");
  pnlStage.Container = &stRecall;
  Add("pnlStage", pnlStage);
  const auto on_stage = [this](const std::string& name, forms::Control& control) {
    control.Container = &pnlStage;
    Add(name, control);
  };
  on_stage("lblStage", lblStage);
  on_stage("cboStage", cboStage);
  on_stage("csStage", csStage);
  lblStage.Caption = "Recall and &stage";
  cboStage.Heading = &lblStage;
  page(stReminder, "stReminder", ecReminder, "ecReminder", "Appointment");
  page(stConfirm, "stConfirm", ecConfirm, "ecConfirm", "Confirmation");
  page(stBirthday, "stBirthday", ecBirthday, "ecBirthday", "Birthday");
}

void eRmdrPersonalSetup::Wire() {
  for (ExcludedContact* kind : Kinds()) {
    kind->Change = [this] { ChangeMade = true; };
  }
  ecRecall.Change = [this] {
    ChangeMade = true;
    ShowStage();
  };
  cboStage.Click = [this] { ShowStage(); };
  cboStage.Leave = cboStage.Click;
  csStage.Arranged = [this] { TakeStageOrder(); };
  qe.Change = [this] { qe_Change(); };
  chkApplyToFamily.Click = [this] { chkApplyToFamily_Click(); };
  cmdContact.Click = [this] { cmdContact_Click(); };
  db.OK.Click = [this] {
    if (!Unsaved() || Save()) {
      Close();
    }
  };
  db.Cancel.Click = [this] { DoClose(); };
  OnSave([this] { return ChangeMade; }, [this] { Write(); });
}

void eRmdrPersonalSetup::Read() {
  if (PatientID != 0) {
    Hold("PATABLE", PatientID);
  }
  const std::string name = NameOf(PatientID);
  if (name.empty()) {
    Tell("Patient " + std::to_string(PatientID) + " was not found in the database.", forms::Icon::Information);
    Close();
    return;
  }
  Caption = "Patient Reminder Setup for " + name;
  ShowKinds();
  ShowStages();
  lblInfo.Caption = ContactSummary(statements_, PatientID);
  if (const std::string note = notes_.Read(PatientID); forms::HasTags(note)) {
    qe.Html = note;
  } else {
    qe.SetText(note);
  }
  note_ = qe.Html;
  family_ = ReadFamily();
  ShowFamily();
}

void eRmdrPersonalSetup::ShowFamily() {
  chkApplyToFamily.Caption = "Apply to all &family members (" + std::to_string(family_.size()) + ")";
  chkApplyToFamily.Enabled = family_.size() > 1;
  if (!chkApplyToFamily.Enabled) {
    chkApplyToFamily.Value = forms::CheckState::Off;
  }
}

std::string eRmdrPersonalSetup::NameOf(std::int32_t patient) const {
  const auto row =
      statements_.Select("SELECT pLASNAM, pFIRNAM FROM PATable WHERE pID=" + Literal(patient) + statements_.Office());
  if (row->Eof()) {
    return {};
  }
  std::string name = data::LastFirst(row->Get(0), row->Get(1));
  return name.empty() ? "Patient " + std::to_string(patient) : name;
}

// The patient is one of them, whether his own row is there or not.
std::vector<std::int32_t> eRmdrPersonalSetup::ReadFamily() const {
  std::vector<std::int32_t> family = {PatientID};
  for (const auto row =
           statements_.Select("SELECT FAMTABLE.fMEMID from FAMTABLE where fRSPID=" +
                              Literal(data::Families(context_.session).HeadOf(PatientID)) + statements_.Office());
       !row->Eof(); row->MoveNext()) {
    if (const std::int32_t member = session::ToId(row->Get(0)); member != 0) {
      family.push_back(member);
    }
  }
  std::ranges::sort(family);
  family.erase(std::unique(family.begin(), family.end()), family.end());
  return family;
}

void eRmdrPersonalSetup::ShowKinds() {
  for (ExcludedContact* kind : Kinds()) {
    kind->Use(orders_.Uses(kind->ReminderType));
    kind->Show(orders_.Read(PatientID, ContactOrderOf::Kind(kind->ReminderType)),
               orders_.Excluded(PatientID, kind->ReminderType));
  }
}

void eRmdrPersonalSetup::ShowStages() {
  std::vector<forms::ListItem> items;
  for (const data::PatientRecall& recall : data::RecallsOf(statements_, PatientID)) {
    for (const std::int32_t stage : recall.stages) {
      const ContactOrderOf of{.link = data::ReminderLink::Recall,
                              .kind = data::ReminderKind::Recall,
                              .recall = recall.recall,
                              .stage = stage,
                              .location = recall.location};
      items.push_back(
          {.text = recall.title + " - " + NameOfStage(stage), .data = static_cast<std::int32_t>(stages_.size())});
      stages_.push_back({.of = of, .stored = orders_.Read(PatientID, of)});
    }
  }
  pnlStage.Visible = !stages_.empty();
  pnlStage.Enabled = ecRecall.Enabled.get();
  cboStage.Items = std::move(items);
  cboStage.ListIndex = stages_.empty() ? -1 : 0;
  ShowStage();
}

eRmdrPersonalSetup::Stage* eRmdrPersonalSetup::ShownStage() {
  const forms::ListItem* current = cboStage.Current();
  return current == nullptr ? nullptr : &stages_.at(static_cast<std::size_t>(current->data));
}

void eRmdrPersonalSetup::ShowStage() {
  if (const Stage* stage = ShownStage()) {
    csStage.Show(stage->order, ecRecall.Excluded());
  }
}

void eRmdrPersonalSetup::TakeStageOrder() {
  Stage* stage = ShownStage();
  if (stage == nullptr || !MayModify()) {
    ShowStage();
    return;
  }
  stage->order = csStage.WithExcluded();
  ChangeMade = true;
}

std::vector<std::int32_t> eRmdrPersonalSetup::Allowed(const Stage& stage) const {
  return data::Without(stage.order, ecRecall.Excluded());
}

void eRmdrPersonalSetup::qe_Change() {
  if (!MayModify()) {
    qe.Html = note_;
    return;
  }
  note_ = qe.Html;
  note_changed_ = true;
  ChangeMade = true;
}

void eRmdrPersonalSetup::chkApplyToFamily_Click() {
  if (MayModify()) {
    ChangeMade = true;
  } else {
    chkApplyToFamily.Value = forms::CheckState::Off;
  }
}

void eRmdrPersonalSetup::cmdContact_Click() {
  frmEreminderContact contact(context_);
  contact.PatientID = PatientID;
  contact.EditOnly = true;
  contact.OnlyLook = ReadOnly();
  context_.user.Show(contact);
  lblInfo.Caption = ContactSummary(statements_, PatientID);
}

bool eRmdrPersonalSetup::Agreed() {
  if (NameOf(PatientID).empty()) {
    throw editing::Refusal(std::string(editing::kDeletedMeanwhile));
  }
  if (ForFamily() && !HasOwn()) {
    Tell("This patient has no contact settings of his own. The other family members keep theirs.",
         forms::Icon::Information);
  }
  return true;
}

bool eRmdrPersonalSetup::HasOwn() const {
  return std::ranges::any_of(Kinds(), [](const ExcludedContact* kind) { return kind->Enabled && kind->Selected(); }) ||
         (ecRecall.Enabled &&
          std::ranges::any_of(stages_, [this](const Stage& stage) { return !Allowed(stage).empty(); }));
}

// All or nothing: a family does not get half of the settings.
void eRmdrPersonalSetup::Write() {
  const std::list<editing::RecordHold> others = HoldFamily();
  session::Transaction transaction(context_.session.Connection());
  RequireKinds();
  WriteChanged();
  for (const editing::RecordHold& other : others) {
    WriteOwn(other.Id());
  }
  transaction.Commit();
  Clear();
}

// The others whose settings are written with the patient's, for as long as that takes. They are those that the person
// has seen counted.
std::list<editing::RecordHold> eRmdrPersonalSetup::HoldFamily() {
  std::list<editing::RecordHold> others;
  if (!ForFamily()) {
    return others;
  }
  if (const auto family = ReadFamily(); family != std::exchange(family_, family)) {
    ShowFamily();
    throw editing::Refusal("The family has changed meanwhile: its members are " + std::to_string(family.size()) +
                           " now. Nothing was saved.");
  }
  for (const std::int32_t member : family_) {
    const std::string name = member == PatientID ? std::string() : NameOf(member);
    if (name.empty()) {
      continue;
    }
    const auto& held = others.emplace_back(context_.session, "PATABLE", member);
    if (held.Holder()) {
      throw editing::Refusal(name + ": " + editing::HeldText(*held.Holder()) + " Nothing was changed.");
    }
  }
  return others;
}

bool eRmdrPersonalSetup::Writes(const ExcludedContact& kind) const {
  return kind.Enabled &&
         (kind.Modified || (ForFamily() && kind.Selected()) ||
          (&kind == &ecRecall && std::ranges::any_of(stages_, [this](const Stage& stage) { return IsDue(stage); })));
}

// A kind that the practice has stopped using meanwhile is left out of the next save.
void eRmdrPersonalSetup::RequireKinds() {
  std::string stopped;
  for (ExcludedContact* kind : Kinds()) {
    if (Writes(*kind) && !orders_.Uses(kind->ReminderType)) {
      stopped += (stopped.empty() ? "" : ", ") + std::string(data::NameOf(kind->ReminderType));
      kind->Use(false);
    }
  }
  pnlStage.Enabled = ecRecall.Enabled.get();
  if (!stopped.empty()) {
    throw editing::Refusal("The practice has stopped using this kind meanwhile: " + stopped + ". Nothing was saved.");
  }
}

void eRmdrPersonalSetup::WriteChanged() const {
  for (const ExcludedContact* kind : Kinds()) {
    if (kind->Enabled && kind->Modified) {
      WriteKind(PatientID, *kind);
    }
  }
  for (const Stage& stage : stages_) {
    if (ecRecall.Enabled && IsDue(stage)) {
      orders_.Save(PatientID, stage.of, Allowed(stage));
    }
  }
  if (note_changed_) {
    notes_.Write(PatientID, note_);
  }
}

// What the patient has of his own; where the defaults hold for him, a member keeps what he has, and so he does where
// he is to be spared all methods of a recall's order.
void eRmdrPersonalSetup::WriteOwn(std::int32_t member) const {
  for (const ExcludedContact* kind : Kinds()) {
    if (kind->Enabled && kind->Selected()) {
      WriteKind(member, *kind);
    }
  }
  if (!ecRecall.Enabled) {
    return;
  }
  const std::int32_t excluded = orders_.Excluded(member, data::ReminderKind::Recall);
  for (const Stage& stage : stages_) {
    if (const auto order = data::Without(Allowed(stage), excluded); !order.empty()) {
      orders_.Save(member, stage.of, order);
    }
  }
}

void eRmdrPersonalSetup::WriteKind(std::int32_t patient, const ExcludedContact& kind) const {
  orders_.Save(patient, ContactOrderOf::Kind(kind.ReminderType), kind.Order());
  orders_.SetExcluded(patient, kind.ReminderType, kind.Excluded());
}

void eRmdrPersonalSetup::Clear() {
  for (ExcludedContact* kind : Kinds()) {
    kind->MarkWritten();
  }
  for (Stage& stage : stages_) {
    stage.stored = stage.order = Allowed(stage);
  }
  csStage.ForgetExcluded();
  csStage.Modified = false;
  note_changed_ = false;
  chkApplyToFamily.Value = forms::CheckState::Off;
  ChangeMade = false;
}

}  // namespace recall
