#include <algorithm>
#include <set>

#include "forms/form.h"
#include "forms/text.h"
#include "insurance/frmCopyPlanOpts.h"
#include "insurance/plan_copy.h"
#include "insurance/ucPlanDetails.h"

// Codes that come into a plan and go out of it.
namespace insurance {

using data::PlanDetail;

PlanDetail ucPlanDetails::Blank() const {
  PlanDetail blank{.plan_name = plan_.name};
  blank.values[Column::kFee] = blank.values[Column::kSecondaryFee] = forms::Currency();
  blank.values[Column::kCoverage] = blank.values[Column::kSecondaryCoverage] = 100.0;
  blank.values[Column::kDeductible] = blank.values[Column::kSecondaryDeductible] = std::string("N");
  return blank;
}

void ucPlanDetails::AddCode() {
  if (!MayEdit() || !SaveEdit()) {
    return;
  }
  LeaveRow();
  const std::size_t place = list_.Add({.detail = Blank()});
  Edit(place);
  Arrange(place);
  TDBG.Col = TDBG.ColumnIndex("Code");
  TDBG.SetFocus();
}

// The current cell, or where most changes are made.
void ucPlanDetails::EditCode() {
  if (MayEdit() && Current()) {
    if (TDBG.Col < 0 || !TDBG.Columns.get()[static_cast<std::size_t>(TDBG.Col)].editable) {
      TDBG.Col = TDBG.ColumnIndex("P.Cov %");
    }
    TDBG.SetFocus();
  }
}

// All codes that are stored are the plan itself.
void ucPlanDetails::DeleteCodes() {
  std::vector<std::size_t> places;
  for (const int row : TDBG.Selected()) {
    places.push_back(rows_->PlaceAt(row));
  }
  if (places.empty() || !MayEdit()) {
    return;
  }
  const auto stored = [this](std::size_t place) { return list_.At(place).detail.id != 0; };
  const auto chosen = std::ranges::count_if(places, stored);
  std::ptrdiff_t all = 0;
  for (std::size_t place = 0; place < list_.Count(); ++place) {
    all += stored(place) ? 1 : 0;
  }
  if (chosen == all && chosen > 0 && IsGlobal()) {
    Tell("Global plan cannot be deleted.", forms::Icon::Exclamation);
    return;
  }
  const bool plan = places.size() > 1 && chosen == all;
  const std::string what = plan ? "all codes of this plan"
                           : places.size() == 1
                               ? "the code " + ToldBack(list_.At(places.front()).detail.Text(Column::kCode))
                               : "the " + forms::WithThousands(static_cast<int>(places.size())) + " selected codes";
  if (chosen == 0 || context_.user.Ask({.text = "Are you sure that you want to delete " + what + "?",
                                        .buttons = forms::kYesNo,
                                        .icon = forms::Icon::Question,
                                        .default_answer = forms::Answer::No}) == forms::Answer::Yes) {
    Attempt([&] { Delete(std::move(places)); });
  }
}

// All of them or none. What is being edited elsewhere is written before.
void ucPlanDetails::Delete(std::vector<std::size_t> places) {
  RequireHold();
  const bool edited = draft_ && std::ranges::find(places, draft_->place) != places.end();
  if (!edited) {
    Write();
  }
  {
    const forms::WaitText wait(context_.user, "  Saving - Please Wait  ");
    session::Transaction transaction(context_.session.Connection());
    for (const std::size_t place : places) {
      if (const std::int32_t id = list_.At(place).detail.id; id != 0) {
        Details().Delete(id);
      }
    }
    transaction.Commit();
  }
  draft_.reset();
  const int row = TDBG.Row;
  std::ranges::sort(places, std::greater());
  for (const std::size_t place : places) {
    list_.Remove(place);
  }
  Arrange(std::nullopt);
  TDBG.Row = std::min(row, rows_->Count() - 1);
}

void ucPlanDetails::MergeServiceCodes() {
  if (!MayEdit() || !SaveEdit() ||
      !Confirm("Are you sure you want to merge all service codes to current insurance plan ?")) {
    return;
  }
  LeaveRow();
  Attempt([this] {
    std::set<std::string> known;
    for (std::size_t place = 0; place < list_.Count(); ++place) {
      known.insert(forms::ToLower(list_.At(place).detail.Text(Column::kCode)));
    }
    const std::size_t before = list_.Count();
    for (const data::ServiceCode& code : data::ServiceCodesOf(context_.session, context_.session.UserName())) {
      if (known.insert(forms::ToLower(code.code)).second) {
        PlanDetail detail = Blank();
        detail.values[Column::kCode] = code.code;
        detail.values[Column::kDescription] = code.description;
        list_.Add({.detail = std::move(detail), .merged = true});
      }
    }
    if (list_.Count() == before) {
      Tell("All service codes are in this plan already.", forms::Icon::Information);
      return;
    }
    merging_ = true;
    TB["CLOSE"].Caption = "D&one";
    Arrange(before);
    Tell(
        "The copied codes will not be saved to insurance plan until they are modified.\r\nClick the 'Done' button "
        "when finished editing codes.",
        forms::Icon::Information);
  });
}

// What was not changed goes.
void ucPlanDetails::EndMerging() {
  merging_ = false;
  TB["CLOSE"].Caption = "Cl&ose";
  draft_.reset();
  for (std::size_t place = list_.Count(); place-- > 0;) {
    if (list_.At(place).merged) {
      list_.Remove(place);
    }
  }
}

void ucPlanDetails::CopyPlan() {
  if (!MayEdit() || !SaveEdit()) {
    return;
  }
  LeaveRow();
  PlanCopy copy(context_);
  copy.RequireHold = RequireHold;
  if (copy.Run({.carrier = plan_.key.carrier,
                .group_number = plan_.key.group_number,
                .plan = GroupID,
                .text = IsGlobal() ? lblPlan[0].Caption.get() : DisplayText(names_, plan_.name)})) {
    Load();
  }
}

}  // namespace insurance
