#include <algorithm>

#include "data/literal.h"
#include "forms/text.h"
#include "lookup/frmTGList.h"
#include "lookup/id_filter.h"
#include "lookup/name_filter.h"

namespace lookup {
namespace {

constexpr std::string_view kOptions = "SESC_LUL";
constexpr std::string_view kSearchAnywhere = "FILTER_SRCH_ANY";
constexpr std::string_view kAutoClear = "FILTER_AUTO_CLEAR";

// The cell of a list of persons that a caption stands for; nullptr for any other column.
std::string* NameCell(NameFilter& names, std::string_view caption) {
  if (caption == "Name") {
    return &names.name;
  }
  if (caption == "Last Name") {
    return &names.last_name;
  }
  return caption == "First Name" ? &names.first_name : nullptr;
}

bool HasFilter(const forms::Grid& grid) {
  return std::ranges::any_of(grid.Columns.get(), [](const auto& column) { return !column.filter.empty(); });
}

}  // namespace

void frmTGList::ReadOptions() {
  Attempt([this] {
    optFiltMid.Value = forms::IsOn(context_.session.UserOption(kOptions, kSearchAnywhere));
    const bool auto_clear = forms::IsOn(context_.session.UserOption(kOptions, kAutoClear));
    chkAutoClearFilter.Value = auto_clear ? forms::CheckState::On : forms::CheckState::Off;
  });
  optFiltLeft.Value = !optFiltMid.Value;
}

void frmTGList::WriteOption(std::string_view key, bool set) {
  Attempt([&] { context_.session.SetUserOption(kOptions, key, set ? "1" : "0"); });
}

// The rows that stand filtered are filtered anew.
void frmTGList::FilterModeChanged() {
  WriteOption(kSearchAnywhere, optFiltMid.Value);
  if (HasFilter(DotNetGrid)) {
    DotNetGrid_FilterChanged();
  }
}

void frmTGList::AutoClearChanged() {
  WriteOption(kAutoClear, chkAutoClearFilter.Value == forms::CheckState::On);
}

void frmTGList::DotNetGrid_FilterChanged() {
  const auto conditions = FilterConditions();
  if (!conditions) {
    context_.user.Tell(std::string(kDifferentNames));
    ClearFilter();
    return;
  }
  if (*conditions != Asked()) {
    Requery(*conditions, sort_, {});
  }
  ClearSearched();
}

// What was searched for; not while the keyboard is in the filters, where more may be typed.
void frmTGList::ClearSearched() {
  if (chkAutoClearFilter.Value == forms::CheckState::On && !due_ && DotNetGrid.FilterCell < 0 &&
      HasFilter(DotNetGrid) && FilterConditions() == conditions_) {
    DotNetGrid.ClearFilters();
  }
}

bool frmTGList::IsFiltered() const {
  return !conditions_.empty() || HasFilter(DotNetGrid);
}

void frmTGList::ClearFilter() {
  DotNetGrid.ClearFilters();
  if (!conditions_.empty() || due_) {
    Requery({}, sort_, {.id = CurrentID()});
  }
}

std::optional<std::vector<data::Sql>> frmTGList::FilterConditions() const {
  const bool anywhere = optFiltMid.Value;
  const bool of_persons = DotNetGrid.ColumnIndex("Last Name") >= 0 && DotNetGrid.ColumnIndex("First Name") >= 0;
  NameFilter names;
  std::vector<data::Sql> conditions;
  for (const forms::GridColumn& column : DotNetGrid.Columns.get()) {
    if (forms::Trim(column.filter).empty()) {
      continue;
    }
    if (std::string* cell = of_persons ? NameCell(names, column.caption) : nullptr; cell != nullptr) {
      *cell = column.filter;
      continue;
    }
    const data::Sql expression = statement_.Expression(column.caption);
    const bool begins_id = !anywhere && column.caption == IDFld.Caption.get();
    if (auto id = begins_id ? IdBeginning(expression, forms::Trim(column.filter)) : std::nullopt) {
      conditions.push_back(std::move(*id));
    } else {
      conditions.push_back("((" + expression + ") like " +
                           (anywhere ? data::LikeContaining(column.filter) : data::LikeBeginning(column.filter)) + ")");
    }
  }
  if (names.Clashes()) {
    return std::nullopt;
  }
  const NameColumns columns = {statement_.Expression("Last Name"), statement_.Expression("First Name")};
  if (data::Sql condition = NameCondition(names, columns, anywhere); !condition.Empty()) {
    conditions.insert(conditions.begin(), std::move(condition));
  }
  return conditions;
}

}  // namespace lookup
