#include <algorithm>

#include "data/global_plan.h"
#include "forms/text.h"
#include "insurance/ucPlanDetails.h"

// What a person types into the rows, and when it is written.
namespace insurance {

using data::PlanDetail;
using session::Value;

namespace {

// With two decimals: "80.00".
std::string WithCents(const Value& percent) {
  const std::string text = session::ToText(percent);
  const auto number = forms::Currency::Parse(text).value_or(forms::Currency());
  return forms::FormatCurrency(number).substr(1);
}

}  // namespace

// Says why not.
bool ucPlanDetails::MayEdit() const {
  if (!loaded_) {
    Tell("Problem while loading coverage details data.", forms::Icon::Critical);
    return false;
  }
  return HasRight(kRight, kGuarded) && editing::EditingForm::MayModify(*this);
}

bool ucPlanDetails::EditMode() const {
  return draft_ && list_.At(draft_->place).detail.values != draft_->before.values;
}

// A filter cell has its own use for the keys.
bool ucPlanDetails::OnGridKey(forms::Key key) {
  if (TDBG.FilterCell >= 0) {
    return false;
  }
  if (key == forms::Key::Insert) {
    AddCode();
    return true;
  }
  if (key == forms::Key::Delete) {
    DeleteCodes();
    return true;
  }
  if (key == forms::Key::Esc && !PictureBox1.Visible && draft_) {
    RevertEdit();
    return true;
  }
  return false;
}

// A row that cannot be written is not left.
void ucPlanDetails::TDBG_RowColChange() {
  const auto current = Current();
  if (!draft_ || current == draft_->place) {
    return;
  }
  if (SaveEdit()) {
    LeaveRow();
  } else {
    TDBG.DoRow(rows_->RowOf(draft_->place));  // alone, of several too
  }
}

void ucPlanDetails::LeaveRow() {
  if (!draft_) {
    return;
  }
  const std::size_t left = draft_->place;
  draft_.reset();
  if (list_.At(left).detail.id == 0 && !list_.At(left).merged) {
    auto current = Current();
    list_.Remove(left);
    if (current && *current > left) {
      --*current;
    }
    Arrange(current);
  }
}

void ucPlanDetails::Edit(std::size_t place) {
  if (!draft_) {
    draft_ = {.place = place, .before = list_.At(place).detail};
  }
}

bool ucPlanDetails::TakeCell(int column, const std::string& text) {
  const auto place = Current();
  if (!place || !MayEdit()) {
    return false;
  }
  const auto cell = static_cast<Column>(TDBG.CellOf(column));
  const auto value = ReadDetail(context_.user, cell, TDBG.Columns.get()[static_cast<std::size_t>(column)].caption, text,
                                rooms_.at(cell), context_.session.Today());
  if (!value) {
    return false;
  }
  PlanDetail changed = list_.At(*place).detail;
  if (text == TDBG.Cell(TDBG.Row, column) || *value == changed.values.at(cell)) {
    return true;
  }
  changed.values.at(cell) = *value;
  if (cell == Column::kCode || cell == Column::kModifier) {
    if (!IsNewCode(*place, changed)) {
      throw editing::Refusal("The code " + ToldBack(changed.Text(Column::kCode)) +
                             " is in this plan already. It was not changed.");
    }
    if (cell == Column::kCode && !session::IsNull(*value)) {
      TakeGlobalCoverage(changed);
    }
  }
  Edit(*place);
  if (cell == Column::kCoverage || cell == Column::kSecondaryCoverage) {
    ChangeCoverage(*place, cell, *value);
  } else {
    list_.Change(*place) = changed;
  }
  return true;
}

bool ucPlanDetails::IsNewCode(std::size_t place, const PlanDetail& detail) const {
  const auto same = [&](const PlanDetail& other, Column column) {
    return forms::EqualsIgnoringCase(other.Text(column), detail.Text(column));
  };
  for (std::size_t other = 0; other < list_.Count(); ++other) {
    if (other != place && same(list_.At(other).detail, Column::kCode) &&
        same(list_.At(other).detail, Column::kModifier)) {
      return detail.Text(Column::kCode).empty();
    }
  }
  return true;
}

void ucPlanDetails::TakeGlobalCoverage(PlanDetail& detail) const {
  if (IsGlobal()) {
    return;
  }
  const auto coverage = data::GlobalPlan(context_.session).CoverageOf(detail.Text(Column::kCode));
  if (!coverage) {
    return;
  }
  if (!session::IsNull(coverage->secondary)) {
    detail.values[Column::kSecondaryCoverage] = coverage->secondary;
  }
  if (session::IsNull(coverage->primary)) {
    return;
  }
  detail.values[Column::kCoverage] = coverage->primary;
  Tell("The coverage for " + detail.Text(Column::kCode) + " will be calculated at " +
           session::ToText(coverage->primary) + "%",
       forms::Icon::Information);
}

void ucPlanDetails::ChangeCoverage(std::size_t place, Column column, const Value& percent) {
  const PlanDetail& detail = list_.At(place).detail;
  const std::string category = detail.Text(Column::kCategory);
  const bool all =
      !forms::Trim(category).empty() &&
      Confirm(std::string("You have changed the ") + (column == Column::kCoverage ? "primary" : "secondary") +
                  " coverage percentage from " + WithCents(detail.values.at(column)) + "% to " +
                  (session::IsNull(percent) ? std::string("0") : session::ToText(percent)) + "% for category [" +
                  category + "]\r\nWould you like to apply the change to all codes under the same category?",
              "Insurance Plan Detail");
  if (!all) {
    list_.Change(place).values.at(column) = percent;
    return;
  }
  RequireHold();
  Details().ChangeCategory(category, column, percent);
  for (std::size_t other = 0; other < list_.Count(); ++other) {
    if (forms::EqualsIgnoringCase(list_.At(other).detail.Text(Column::kCategory), category)) {
      list_.Change(other).values.at(column) = percent;
    }
  }
  // The stored row may be of another category than the one that was just typed.
  if (forms::EqualsIgnoringCase(draft_->before.Text(Column::kCategory), category)) {
    draft_->before.values.at(column) = percent;
  }
}

void ucPlanDetails::Write() {
  if (!EditMode()) {
    return;
  }
  const std::size_t place = draft_->place;
  if (forms::Trim(list_.At(place).detail.Text(Column::kCode)).empty()) {
    throw editing::Refusal("You must enter a code before you can save this row.");
  }
  RequireHold();
  const forms::WaitText wait(context_.user, "  Saving - Please Wait  ");
  if (list_.At(place).detail.id == 0) {
    const std::int32_t id = Details().Insert(list_.At(place).detail);
    list_.Change(place).id = id;
  } else if (!Details().Update(draft_->before, list_.At(place).detail)) {
    throw editing::Refusal(std::string(editing::kDeletedMeanwhile));
  }
  list_.MarkStored(place);
  draft_.reset();
  TDBG.Refresh();
}

bool ucPlanDetails::SaveEdit() {
  return Attempt([this] { Write(); });
}

void ucPlanDetails::RevertEdit() {
  const std::size_t place = draft_->place;
  list_.Change(place) = draft_->before;
  LeaveRow();
  TDBG.Refresh();
}

bool ucPlanDetails::QueryUnload() {
  return SaveEdit() || context_.user.Ask({.text = "Are you sure that you want to exit without saving the changes?",
                                          .buttons = forms::kYesNo,
                                          .icon = forms::Icon::Question,
                                          .default_answer = forms::Answer::No}) == forms::Answer::Yes;
}

}  // namespace insurance
