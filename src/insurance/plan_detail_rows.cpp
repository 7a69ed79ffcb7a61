#include "insurance/plan_detail_rows.h"

#include <algorithm>
#include <numeric>

#include "forms/text.h"

namespace insurance {

using data::PlanDetail;

void PlanDetailList::Take(std::vector<PlanDetail> details) {
  entries_.clear();
  entries_.reserve(details.size());
  for (PlanDetail& detail : details) {
    entries_.push_back({.detail = std::move(detail)});
  }
}

std::size_t PlanDetailList::Add(Entry entry) {
  entries_.push_back(std::move(entry));
  return entries_.size() - 1;
}

void PlanDetailList::Remove(std::size_t place) {
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(place));
}

PlanDetail& PlanDetailList::Change(std::size_t place) {
  entries_.at(place).shown.clear();
  return entries_.at(place).detail;
}

void PlanDetailList::MarkStored(std::size_t place) {
  entries_.at(place).merged = false;
  entries_.at(place).shown.clear();
}

std::string_view PlanDetailList::Cell(std::size_t place, int cell) const {
  Entry& entry = entries_.at(place);
  if (entry.shown.empty()) {
    entry.shown.resize(kGridColumns);
    for (std::size_t column = 0; column < PlanDetail::kColumns; ++column) {
      entry.shown[column] = ShownDetail(entry.detail, static_cast<PlanDetail::Column>(column));
    }
    entry.shown[kOfCarrier] = carrier_name;
    entry.shown[kOfGroup] = group_number;
    entry.shown[kOfPlan] = entry.detail.plan_name;
    entry.shown[kRecordNumber] = entry.detail.id == 0 ? std::string() : std::to_string(entry.detail.id);
  }
  return entry.shown.at(static_cast<std::size_t>(cell));
}

bool PlanDetailList::Passes(std::size_t place, const std::vector<forms::GridColumn>& columns) const {
  return std::ranges::all_of(columns, [&](const forms::GridColumn& column) {
    return column.filter.empty() ||
           forms::ToLower(Cell(place, column.cell)).find(forms::ToLower(column.filter)) != std::string::npos;
  });
}

// Numbers and dates by their value, texts without regard to case; what is empty comes first.
bool PlanDetailList::ComesBefore(std::size_t left, std::size_t right, int cell) const {
  const auto number = [this, cell](std::size_t place) -> std::optional<double> {
    if (static_cast<std::size_t>(cell) < PlanDetail::kColumns) {
      const session::Value& value = entries_[place].detail.values.at(static_cast<std::size_t>(cell));
      if (const auto* amount = std::get_if<forms::Currency>(&value)) {
        return static_cast<double>(amount->TenThousandths());
      }
      if (const auto* percent = std::get_if<double>(&value)) {
        return *percent;
      }
      if (const auto* times = std::get_if<std::int64_t>(&value)) {
        return static_cast<double>(*times);
      }
      if (const auto* date = std::get_if<forms::DateTime>(&value)) {
        return static_cast<double>(date->time_since_epoch().count());
      }
    } else if (cell == kRecordNumber && entries_[place].detail.id != 0) {
      return entries_[place].detail.id;
    }
    return std::nullopt;
  };
  const auto first = number(left);
  const auto second = number(right);
  if (first || second) {
    return first < second;
  }
  return forms::ToLower(Cell(left, cell)) < forms::ToLower(Cell(right, cell));
}

std::vector<std::size_t> PlanDetailList::Arranged(const forms::Grid& grid, std::optional<std::size_t> always) const {
  const auto& columns = grid.Columns.get();
  std::vector<std::size_t> places(entries_.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  if (std::ranges::any_of(columns, [](const forms::GridColumn& column) { return !column.filter.empty(); })) {
    std::erase_if(places, [&](std::size_t place) { return place != always && !Passes(place, columns); });
  }
  if (grid.SortColumn >= 0) {
    const int cell = grid.CellOf(grid.SortColumn);
    std::ranges::stable_sort(places, [&](std::size_t left, std::size_t right) {
      return grid.SortDescending ? ComesBefore(right, left, cell) : ComesBefore(left, right, cell);
    });
  }
  return places;
}

int PlanDetailRows::RowOf(std::size_t place) const {
  const auto found = std::ranges::find(places_, place);
  return found == places_.end() ? -1 : static_cast<int>(found - places_.begin());
}

}  // namespace insurance
