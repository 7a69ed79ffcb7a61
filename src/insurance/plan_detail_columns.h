#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/plan_details.h"
#include "forms/dates.h"
#include "forms/grid.h"
#include "forms/user.h"

// The columns of a plan's details as a grid has them.
namespace insurance {

// Behind those of the detail: whose plan it is.
enum PlanColumn : std::size_t {
  kOfCarrier = data::PlanDetail::kColumns,
  kOfGroup,
  kOfPlan,
  kRecordNumber,
  kGridColumns
};

std::vector<forms::GridColumn> PlanDetailColumns(bool editable);

// What a detail shows in a column of its own.
std::string ShownDetail(const data::PlanDetail& detail, data::PlanDetail::Column column);

// A typed cell's value; null for an empty one. What is none, or longer than `room`, has been told, and is nothing.
std::optional<session::Value> ReadDetail(forms::User& user, data::PlanDetail::Column column, const std::string& caption,
                                         std::string_view text, int room, forms::Date today);

}  // namespace insurance
