#include "database/dialect/date_literal.h"

#include <array>
#include <charconv>

#include "forms/dates.h"
#include "forms/text.h"

namespace host::sql {
namespace {

// Numbers with separators between them, as many as there are of either.
std::optional<std::array<int, 3>> Numbers(std::string_view text, char separator, std::size_t least) {
  std::array<int, 3> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const std::size_t end = text.find(separator);
    const std::string_view digits = text.substr(0, end);
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), numbers.at(i));
    if (error != std::errc() || stop != digits.data() + digits.size() || numbers.at(i) < 0) {
      return std::nullopt;
    }
    if (end == std::string_view::npos) {
      return i + 1 >= least ? std::optional(numbers) : std::nullopt;
    }
    text.remove_prefix(end + 1);
  }
  return std::nullopt;
}

std::optional<forms::Date> ParseDay(std::string_view text) {
  const bool slashed = text.find('/') != std::string_view::npos;
  const auto numbers = Numbers(text, slashed ? '/' : '-', 3);
  if (!numbers) {
    return std::nullopt;
  }
  const auto [first, second, third] = *numbers;
  const bool year_first = text.find_first_of("/-") == 4;
  const int year = year_first ? first : third;
  const int month = year_first ? second : first;
  const int day = year_first ? third : second;
  if (year < 100 || year > 9999 || month > 12 || day > 31) {
    return std::nullopt;
  }
  const forms::Date date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                         std::chrono::day(static_cast<unsigned>(day))};
  return date.ok() ? std::optional(date) : std::nullopt;
}

std::optional<std::chrono::seconds> ParseTime(std::string_view text) {
  std::optional<bool> afternoon;
  if (text.size() > 2) {
    const std::string half = forms::ToUpper(text.substr(text.size() - 2));
    if (half == "AM" || half == "PM") {
      afternoon = half == "PM";
      text = forms::Trim(text.substr(0, text.size() - 2));
    }
  }
  const auto numbers = Numbers(text, ':', 2);
  if (!numbers) {
    return std::nullopt;
  }
  auto [hours, minutes, seconds] = *numbers;
  if (minutes > 59 || seconds > 59 || hours > 23 || (afternoon && (hours < 1 || hours > 12))) {
    return std::nullopt;
  }
  if (afternoon) {
    hours = hours % 12 + (*afternoon ? 12 : 0);
  }
  return std::chrono::hours(hours) + std::chrono::minutes(minutes) + std::chrono::seconds(seconds);
}

}  // namespace

std::optional<std::string> IsoMoment(std::string_view text) {
  text = forms::Trim(text);
  const std::size_t colon = text.find(':');
  const std::size_t blank = text.find_first_of(" T");
  const bool has_day = text.find_first_of("/-") != std::string_view::npos;
  const std::size_t day_end = has_day ? blank : 0;
  const auto day =
      has_day ? ParseDay(text.substr(0, day_end))
              : std::optional(forms::Date{std::chrono::year(1899), std::chrono::December, std::chrono::day(30)});
  const bool has_time = colon != std::string_view::npos;
  if (!day || has_time != (day_end != std::string_view::npos)) {
    return std::nullopt;
  }
  if (!has_time) {
    return forms::FormatIso(*day);
  }
  const auto time = ParseTime(forms::Trim(has_day ? text.substr(day_end + 1) : text));
  if (!time) {
    return std::nullopt;
  }
  return *time == std::chrono::seconds(0) ? forms::FormatIso(*day) : forms::FormatIso(forms::AtMidnight(*day) + *time);
}

}  // namespace host::sql
