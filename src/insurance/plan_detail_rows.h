#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/plan_details.h"
#include "forms/grid.h"
#include "insurance/plan_detail_columns.h"

namespace insurance {

// The details of the plan that is shown, and what their grid shows of them: each is known by its place among them, and
// stands in a row of the grid where the filters let it.
class PlanDetailList {
 public:
  struct Entry {
    data::PlanDetail detail;
    bool merged = false;                  // from the service codes: not stored before it is changed
    std::vector<std::string> shown = {};  // the cells; empty until they are asked for
  };

  // As the columns of the plan itself show it.
  std::string carrier_name;
  std::string group_number;

  void Take(std::vector<data::PlanDetail> details);
  // The place of the new one, which is the last.
  std::size_t Add(Entry entry);
  void Remove(std::size_t place);

  std::size_t Count() const { return entries_.size(); }
  const Entry& At(std::size_t place) const { return entries_.at(place); }
  data::PlanDetail& Change(std::size_t place);
  void MarkStored(std::size_t place);
  std::string_view Cell(std::size_t place, int cell) const;

  // The details in the rows of the grid: those that have what its filter cells say, and `always`, in the order of its
  // sorted column.
  std::vector<std::size_t> Arranged(const forms::Grid& grid, std::optional<std::size_t> always) const;

 private:
  bool Passes(std::size_t place, const std::vector<forms::GridColumn>& columns) const;
  bool ComesBefore(std::size_t left, std::size_t right, int cell) const;

  mutable std::vector<Entry> entries_;
};

// Their rows, as they stood when they were arranged.
class PlanDetailRows : public forms::GridRows {
 public:
  PlanDetailRows(const PlanDetailList& list, std::vector<std::size_t> places)
      : list_(list), places_(std::move(places)) {}

  int Count() const override { return static_cast<int>(places_.size()); }
  std::string_view Text(int row, int cell) const override { return list_.Cell(PlaceAt(row), cell); }

  std::size_t PlaceAt(int row) const { return places_.at(static_cast<std::size_t>(row)); }
  // -1 for one that is not shown.
  int RowOf(std::size_t place) const;

 private:
  const PlanDetailList& list_;
  std::vector<std::size_t> places_;
};

}  // namespace insurance
