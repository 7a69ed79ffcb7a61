#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "data/statements.h"
#include "session/session.h"

namespace people {

// When an employee works, as it is stored.
struct WorkHours {
  std::string days;  // as `forms::FormatWeekdays` writes them, or whatever another program wrote
  std::optional<std::chrono::minutes> start = {};  // after midnight
  std::optional<std::chrono::minutes> end = {};

  static WorkHours Of(const session::WorkSchedule& schedule);
  // Of a row of `ESTable`, by its columns.
  static WorkHours Of(const std::function<session::Value(std::string_view column)>& row);
  // The columns of `ESTable`; the times stand on the given day.
  data::Assignments Values(forms::Date day) const;
  bool Empty() const { return days.empty() && !start && !end; }
  // "08:00 AM-05:00 PM"; empty without both times.
  std::string Times() const;

  friend bool operator==(const WorkHours&, const WorkHours&) = default;
};

// "08:00 AM".
std::string FormatTimeOfDay(std::chrono::minutes time);

}  // namespace people
