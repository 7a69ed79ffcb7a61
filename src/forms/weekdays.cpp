#include "forms/weekdays.h"

#include <algorithm>

#include "forms/text.h"

namespace forms {
namespace {

constexpr std::size_t kDays = kWeekdayNames.size();

std::string_view ShortName(std::size_t day) {
  return kWeekdayNames.at(day).substr(0, 3);
}

std::optional<std::size_t> DayOf(std::string_view name) {
  for (std::size_t day = 0; day < kDays; ++day) {
    if (EqualsIgnoringCase(ShortName(day), Trim(name))) {
      return day;
    }
  }
  return std::nullopt;
}

}  // namespace

std::string FormatWeekdays(Weekdays days) {
  std::string text;
  for (std::size_t first = 0; first < kDays; ++first) {
    if (!days[first]) {
      continue;
    }
    std::size_t last = first;
    while (last + 1 < kDays && days[last + 1]) {
      ++last;
    }
    text += (text.empty() ? "" : ",") + std::string(ShortName(first));
    if (last - first >= 2) {
      text += "-" + std::string(ShortName(last));
      first = last;
    }
  }
  return text;
}

std::optional<Weekdays> ParseWeekdays(std::string_view text) {
  Weekdays days;
  while (!Trim(text).empty()) {
    const std::string_view part = text.substr(0, text.find(','));
    const std::size_t dash = part.find('-');
    const auto first = DayOf(part.substr(0, dash));
    const auto last = dash == std::string_view::npos ? first : DayOf(part.substr(dash + 1));
    if (!first || !last || *last < *first) {
      return std::nullopt;
    }
    for (std::size_t day = *first; day <= *last; ++day) {
      days.set(day);
    }
    text.remove_prefix(std::min(part.size() + 1, text.size()));
  }
  return days;
}

}  // namespace forms
