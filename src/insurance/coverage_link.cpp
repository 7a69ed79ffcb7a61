#include "insurance/coverage_link.h"

#include <algorithm>
#include <optional>

#include "editing/record_hold.h"

namespace insurance {
namespace {

std::int32_t Picked(const forms::ComboBox& box) {
  const forms::ListItem* item = box.Current();
  return item == nullptr ? 0 : item->data;
}

}  // namespace

CoverageLink::CoverageLink(const session::ScreenContext& context) : Rules(context) {
  Register();
  Wire();
}

void CoverageLink::Register() {
  Add("lblHolder", lblHolder);
  Add("cboHolder", cboHolder);
  Add("lblPlan", lblPlan);
  Add("cboPlan", cboPlan);
  Add("lblRel", lblRel);
  Add("cboRel", cboRel);
  Add("cmdAdd", cmdAdd);
  Add("cmdNew", cmdNew);
  Add("cmdCancel", cmdCancel);
  lblHolder.Caption = "Insurance &holder";
  cboHolder.Heading = &lblHolder;
  lblPlan.Caption = "&Plan";
  cboPlan.Heading = &lblPlan;
  lblRel.Caption = "&Relationship to the holder";
  cboRel.Heading = &lblRel;
  cmdAdd.Caption = "&Add";
  cmdAdd.ToolTip = "Cover the patient through this plan";
  cmdNew.Caption = "&New Plan...";
  cmdNew.ToolTip = "Select a plan of an employer that the insurance holder does not hold yet";
  cmdCancel.Caption = "Cance&l";
  cmdCancel.AccessibleName = "Link no plan";
  cboRel.Items = Relationships();
  Enabled = false;
}

void CoverageLink::Wire() {
  cboHolder.Click = [this] { ShowPlans(); };
  cmdAdd.Click = [this] { AddHeld(); };
  cmdNew.Click = [this] { AddInsuranceHolder(); };
  cmdCancel.Click = [this] { Stop(); };
  KeyDown = [this](forms::Key key) {
    const bool used = Started() && (key == forms::Key::Esc || key == forms::Key::Enter);
    if (used && key == forms::Key::Esc) {
      Stop();
    } else if (used) {
      AddHeld();
    }
    return used;
  };
}

// Whoever holds a plan that does not cover the patient yet is proposed.
void CoverageLink::Start(std::int32_t patient, const std::vector<std::int32_t>& covered) {
  patient_ = patient;
  covered_ = covered;
  family_ = FamilyOf(statements_, patient);
  plans_ = PlansOf(statements_, family_);
  std::vector<forms::ListItem> members;
  for (const FamilyMember& member : family_) {
    members.push_back({member.name + (member.id == patient ? " (Self)" : ""), member.id});
  }
  cboHolder.Items = std::move(members);
  const auto open = std::ranges::find_if(
      plans_, [&](const HeldPlan& held) { return std::ranges::find(covered_, held.holding) == covered_.end(); });
  cboHolder.ListIndex = cboHolder.IndexOfData(open == plans_.end() ? patient : open->subscriber);
  cboRel.ListIndex = -1;
  ShowPlans();
  Enabled = true;
  cboHolder.SetFocus();
}

void CoverageLink::Stop() {
  for (forms::ComboBox* box : {&cboHolder, &cboPlan, &cboRel}) {
    box->ListIndex = -1;
  }
  Enabled = false;
  Stopped();
}

// Who holds the plan himself is in no other relationship to its holder.
void CoverageLink::ShowPlans() {
  const std::int32_t holder = Picked(cboHolder);
  std::vector<forms::ListItem> items;
  int proposed = -1;
  for (const HeldPlan& held : plans_) {
    if (held.subscriber == holder) {
      const bool covers = std::ranges::find(covered_, held.holding) != covered_.end();
      proposed = proposed < 0 && !covers ? static_cast<int>(items.size()) : proposed;
      items.push_back({held.plan, held.holding});
    }
  }
  cboPlan.ListIndex = -1;
  cboPlan.Items = std::move(items);
  cboPlan.ListIndex = proposed;
  const bool self = holder == patient_;
  if (self || Picked(cboRel) == kSelf) {
    cboRel.ListIndex = self ? cboRel.IndexOfData(kSelf) : -1;
  }
  cboRel.Enabled = !self;
}

std::string CoverageLink::NameOf(std::int32_t member) const {
  const auto found = std::ranges::find(family_, member, &FamilyMember::id);
  return found == family_.end() ? std::string() : found->name;
}

std::optional<CoverageLink::Choice> CoverageLink::HolderChosen() {
  const Choice choice = {.subscriber = Picked(cboHolder), .relationship = Picked(cboRel)};
  if (choice.subscriber == 0) {
    TellMissing("Please select the insurance holder.", cboHolder);
  } else if (choice.relationship == 0) {
    TellMissing("Please select this patient's relationship to " + NameOf(choice.subscriber) + ".", cboRel);
  } else if (choice.relationship == kSelf && choice.subscriber != patient_) {
    TellMissing(
        "Self is the relationship of the insurance holder to his own plan. Please select this patient's "
        "relationship to " +
            NameOf(choice.subscriber) + ".",
        cboRel);
  } else {
    return choice;
  }
  return std::nullopt;
}

void CoverageLink::TellMissing(std::string text, forms::ComboBox& box) const {
  context_.user.Tell(std::move(text), std::string(kCoverageTitle), forms::Icon::Information);
  box.SetFocus();
}

void CoverageLink::AddHeld() {
  if (Picked(cboHolder) != 0 && Picked(cboPlan) == 0) {
    TellMissing("Please select an insurance plan of " + NameOf(Picked(cboHolder)) + ", or click New Plan.", cboPlan);
    return;
  }
  auto choice = HolderChosen();
  if (choice) {
    choice->holding = Picked(cboPlan);
    if (Chosen(*choice)) {
      Stop();
    }
  }
}

// The holder gets a row of his own, so that he is held as the patient is.
void CoverageLink::AddInsuranceHolder() {
  auto choice = HolderChosen();
  if (!choice || !HasRight("LINK-EMP-INS", "employer and insurance plan links")) {
    return;
  }
  const editing::RecordHold hold(context_.session, "PATABLE", choice->subscriber);
  if (hold.Holder()) {
    throw editing::Refusal(NameOf(choice->subscriber) + ": " + editing::HeldText(*hold.Holder()) +
                           " Nothing was changed.");
  }
  const std::int32_t employer = ChooseEmployer(choice->subscriber);
  if (employer == 0) {
    return;
  }
  choice->link =
      context_.screens.SelectCoverage({.employer = employer, .subscriber = choice->subscriber, .patient = patient_});
  if (choice->link == 0) {
    return;
  }
  hold.Require();
  if (Chosen(*choice)) {
    Stop();
  }
}

std::int32_t CoverageLink::ChooseEmployer(std::int32_t holder) const {
  using End = session::SearchOutcome::End;
  const auto found = context_.screens.Search({.list = session::SearchList::Employers, .offer = [&](const std::string&) {
                                                return "Enter as employer for " + NameOf(holder) + "?";
                                              }});
  if (found.end != End::New) {
    return found.Chosen() ? found.id : 0;
  }
  const auto added = context_.screens.Edit({.kind = session::RecordKind::Employer, .typed_name = found.name});
  return added.Saved() ? added.id : 0;
}

}  // namespace insurance
