#include "people/work_hours.h"

#include "data/literal.h"
#include "forms/text.h"

namespace people {
namespace {

using std::chrono::minutes;

std::optional<minutes> TimeOf(const session::Value& value) {
  const auto time = session::ToDateTime(value);
  return time ? std::optional(std::chrono::floor<minutes>(*time - forms::AtMidnight(forms::DateOf(*time))))
              : std::nullopt;
}

data::Sql TimeLiteral(forms::Date day, const std::optional<minutes>& time) {
  return time ? data::Literal(forms::AtMidnight(day) + *time) : data::Sql("Null");
}

}  // namespace

WorkHours WorkHours::Of(const session::WorkSchedule& schedule) {
  return {forms::FormatWeekdays(schedule.days), schedule.start, schedule.end};
}

WorkHours WorkHours::Of(const std::function<session::Value(std::string_view column)>& row) {
  return {session::ToText(row("ESWorDay")), TimeOf(row("ESWorStaTim")), TimeOf(row("ESWorEndTim"))};
}

data::Assignments WorkHours::Values(forms::Date day) const {
  return {{"ESWorDay", data::Literal(days)},
          {"ESWorTim", data::Literal(Times())},
          {"ESWorStaTim", TimeLiteral(day, start)},
          {"ESWorEndTim", TimeLiteral(day, end)}};
}

std::string WorkHours::Times() const {
  return start && end ? FormatTimeOfDay(*start) + "-" + FormatTimeOfDay(*end) : std::string();
}

std::string FormatTimeOfDay(minutes time) {
  return forms::ToUpper(forms::FormatTime(forms::DateTime() + time));
}

}  // namespace people
