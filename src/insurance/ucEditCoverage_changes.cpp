// What a person changes in the coverage editor.
#include <algorithm>

#include "editing/editing_form.h"
#include "forms/text.h"
#include "insurance/ucEditCoverage.h"

namespace insurance {
namespace {

constexpr std::string_view kChangeTitle = "Change Insurance Coverage";
constexpr std::string_view kChangeQuestion = "Are you sure you want to change this insurance coverage?";

}  // namespace

bool ucEditCoverage::MayChange() const {
  return editing::EditingForm::MayModify(TDBG) && MayLeave();
}

bool ucEditCoverage::IsNew(std::int32_t holding) const {
  const auto covered = data::Coverages(context_.session).Of(PatientID);
  const bool is_new = std::ranges::none_of(
      covered, [&](const data::Coverage& coverage) { return coverage.live && coverage.holding == holding; });
  if (!is_new) {
    context_.user.Tell(name_ +
                           " is already covered by this insurance plan. Please select a different plan or edit the "
                           "existing one.",
                       std::string(kCoverageTitle), forms::Icon::Information);
  }
  return is_new;
}

bool ucEditCoverage::Write(const std::function<bool(const data::CoverageChanges&)>& change) {
  BeforeWriting();
  const bool written = change(data::CoverageChanges(context_.session));
  if (written) {
    Changed();
  }
  Read();
  if (!written) {
    Tell("This insurance coverage has been changed elsewhere meanwhile. It is shown as it is now; nothing was changed.",
         forms::Icon::Exclamation);
  }
  return written;
}

void ucEditCoverage::EditCell(const std::string& key, const std::string& text) {
  if (text == TDBG.Cell(TDBG.Row, TDBG.Col) || !MayChange()) {
    return;
  }
  if (key == kCoveredBy) {
    ChangeHolding(text);
  } else if (key == kRel) {
    ChangeRelationship(text);
  } else {
    ChangeCarrierId(std::string(forms::Trim(text)));
  }
}

void ucEditCoverage::ChangeHolding(const std::string& choice) {
  if (choice == kNone) {
    Remove();
    return;
  }
  const std::vector<HeldPlan> plans = OtherPlans(TDBG.Row);
  const auto told = ToldPlans(plans, TDBG.Cell(TDBG.Row, TDBG.Col));
  const auto chosen = static_cast<std::size_t>(std::ranges::find(told, choice) - told.begin());
  if (chosen >= plans.size()) {
    return;
  }
  const std::int32_t holding = plans[chosen].holding;
  const std::int32_t coverage = CoverageID();
  if (IsNew(holding) && Confirm(std::string(kChangeQuestion), kChangeTitle)) {
    Write([&](const data::CoverageChanges& changes) { return changes.Change(coverage, holding); });
  }
}

void ucEditCoverage::ChangeRelationship(const std::string& name) {
  const std::int32_t coverage = CoverageID();
  const std::int32_t subscriber = Id(kSubscriberId);
  const bool self = RelationshipCode(name) == kSelf;
  if (self && subscriber != PatientID) {
    Tell("Self is the relationship of the insurance holder to his own plan. Please select " + name_ +
             "'s relationship to the holder.",
         forms::Icon::Information);
    return;
  }
  if (!self && subscriber == PatientID) {
    Tell(name_ + " is the holder of this insurance plan: the relationship is Self.", forms::Icon::Information);
    return;
  }
  Write(
      [&](const data::CoverageChanges& changes) { return changes.SetRelationship(coverage, RelationshipCode(name)); });
}

void ucEditCoverage::ChangeCarrierId(const std::string& text) {
  if (forms::Fitting(text, room_) != text) {
    Tell("The Patient ID has at most " + std::to_string(room_) + " characters.", forms::Icon::Information);
    return;
  }
  const std::int32_t coverage = CoverageID();
  if (Confirm("This ID number is used to submit insurance claims. Entering an incorrect ID may cause claims to be "
              "rejected.\r\nNOTE: Deleting the ID will automatically reset it to the Patient SSN.\r\nAre you sure you "
              "want to change the Insurance Company assigned Patient ID?",
              "Modify Insurance Company Assigned ID Number")) {
    const std::string id = text.empty() ? Ssn() : text;
    Write([&](const data::CoverageChanges& changes) { return changes.SetCarrierId(coverage, id); });
  }
}

void ucEditCoverage::Remove() {
  const std::int32_t coverage = CoverageID();
  if (coverage == 0) {
    Tell("Please select the insurance plan to be removed and try again.", forms::Icon::Information);
  } else if (MayChange() && Confirm("Removing insurance will change coverage year to date, remaining balance, and "
                                    "remaining deductible.\r\nAre you sure you want continue ?",
                                    "Remove Insurance Coverage")) {
    Write([&](const data::CoverageChanges& changes) { return changes.Remove(coverage); });
  }
}

bool ucEditCoverage::Exchange(int from, int to) {
  const std::int32_t one = IdAt(from, kCoverageId);
  const std::int32_t other = IdAt(to, kCoverageId);
  return MayChange() && Confirm(std::string(kChangeQuestion), kChangeTitle) &&
         Write([&](const data::CoverageChanges& changes) { return changes.Exchange(one, other); });
}

// The first coverage is everybody's to enter.
bool ucEditCoverage::MayAdd() const {
  const auto covered = data::Coverages(context_.session).Of(PatientID);
  const bool may =
      std::ranges::none_of(covered, &data::Coverage::live) || context_.session.HasRight(session::kSupervisorRight);
  if (!may) {
    context_.user.Tell("User " + context_.session.UserName() +
                           " does not have the right to link additional insurance coverage for in-house database.\r\n"
                           "Linking additional insurance coverage requires supervisor rights.",
                       std::string(kCoverageTitle), forms::Icon::Exclamation);
  }
  return may;
}

// What is picked already stays.
void ucEditCoverage::StartLink() {
  if (Link.Started()) {
    Link.cboHolder.SetFocus();
  } else if (MayChange() && MayAdd()) {
    Link.Start(PatientID, Covered());
  }
}

void ucEditCoverage::AddInsuranceHolder() {
  if (Link.Started()) {
    Link.AddInsuranceHolder();
  } else {
    StartLink();
  }
}

bool ucEditCoverage::LinkSettled() {
  if (!Link.Started()) {
    return true;
  }
  const forms::Answer answer = context_.user.Ask({.text = "The insurance plan has not been linked yet. Link it now?",
                                                  .title = std::string(kCoverageTitle),
                                                  .buttons = forms::kYesNoCancel,
                                                  .icon = forms::Icon::Question});
  if (answer == forms::Answer::Yes) {
    Link.cmdAdd.DoClick();
  } else if (answer == forms::Answer::No) {
    Link.Stop();
  }
  return !Link.Started();
}

bool ucEditCoverage::AddChosen(const CoverageLink::Choice& choice) {
  if (!MayChange() || !MayAdd()) {
    return false;
  }
  std::int32_t holding = choice.holding;
  if (holding == 0) {
    const auto held = data::Holdings(context_.session).LiveOf(choice.subscriber, choice.link);
    holding = held ? held->id : 0;
  }
  if (holding != 0 && !IsNew(holding)) {
    return false;
  }
  const bool added = Write([&](const data::CoverageChanges& changes) {
    return holding != 0 ? changes.Add(PatientID, holding, choice.relationship)
                        : changes.AddThroughLink(PatientID, choice.subscriber, choice.link, choice.relationship);
  });
  if (added) {
    TDBG.Row = TDBG.RowCount() - 1;
    Highlighted();
  }
  return added;
}

}  // namespace insurance
