#include "insurance/plan_copy.h"

#include <utility>

#include "data/plan_details_copy.h"
#include "forms/text.h"
#include "insurance/frmCopyPlanOpts.h"

namespace insurance {
namespace {

using data::PlanDetailsCopy;

void RequireDetails(const PlanDetailsCopy& copy) {
  if (!copy.SourceHasDetails()) {
    throw editing::Refusal(
        "The selected insurance plan has no coverage details. Please select a different plan to copy into this one.");
  }
}

}  // namespace

bool PlanCopy::Run(const Target& target) const {
  if (!HasRight("Change-Ins-Plan-Detail", "insurance plan details")) {
    return false;
  }
  frmCopyPlanOpts choice(context_);
  choice.TargetCarrierID = target.carrier;
  choice.TargetGroupID = target.plan;
  choice.Target_elID = target.link;
  choice.TargetText = target.text;
  choice.CheckSource = [&](const data::PlanKey& source) {
    RequireDetails({context_.session, source, {target.carrier, target.group_number}});
  };
  context_.user.Show(choice);
  if (choice.Canceled() || !Attempt([&] { Copy(target, choice); })) {
    return false;
  }
  context_.user.Tell("The plan has been copied succesfully.", "Copy Insurance Plan", forms::Icon::Information);
  return true;
}

void PlanCopy::Copy(const Target& target, const frmCopyPlanOpts& choice) const {
  const forms::WaitText wait(context_.user, "  Copying Insurance Plan - Please Wait  ");
  const auto source = data::ReadGroupPlan(context_.session, choice.SourceGroupID);
  if (!source) {
    throw editing::Refusal("Another user has deleted the plan to copy from. Nothing was changed.");
  }
  const auto filled = data::ReadGroupPlan(context_.session, target.plan).value_or(data::GroupPlan());
  if (choice.SourceCarrierID == target.carrier &&
      forms::EqualsIgnoringCase(source->key.group_number, target.group_number)) {
    throw editing::Refusal(kSamePlan);
  }
  if (RequireHold) {
    RequireHold();
  }
  const PlanDetailsCopy copy(context_.session, {choice.SourceCarrierID, source->key.group_number},
                             {target.carrier, target.group_number});
  session::Transaction transaction(context_.session.Connection());
  RequireDetails(copy);
  if (choice.CopyAll()) {
    copy.CopyAll(filled.name);
  } else if (!copy.ShareCodes()) {
    throw editing::Refusal("The two insurance plans have no codes in common. Nothing was changed.");
  }
  using Part = PlanDetailsCopy::Part;
  for (const auto& [chosen, part] :
       {std::pair(choice.CopyFee(), Part::Fees), std::pair(choice.CopyMax(), Part::Maximums),
        std::pair(choice.CopyPercent(), Part::Percents)}) {
    if (chosen) {
      copy.Copy(part);
    }
  }
  transaction.Commit();
}

}  // namespace insurance
