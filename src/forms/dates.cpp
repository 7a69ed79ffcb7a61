#include "forms/dates.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "forms/text.h"

namespace forms {
namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::floor;
using std::chrono::local_days;
using std::chrono::month;
using std::chrono::year;

std::string Digits(int number, std::size_t least) {
  const std::string text = std::to_string(number);
  return std::string(least - std::min(least, text.size()), '0') + text;
}

int YearOf(Date date) {
  return static_cast<int>(date.year());
}

int MonthOf(Date date) {
  return static_cast<int>(static_cast<unsigned>(date.month()));
}

int DayOf(Date date) {
  return static_cast<int>(static_cast<unsigned>(date.day()));
}

std::string MonthDayYear(Date date, char separator) {
  return Digits(MonthOf(date), 2) + separator + Digits(DayOf(date), 2) + separator + Digits(YearOf(date), 4);
}

std::chrono::hh_mm_ss<std::chrono::seconds> TimeOfDay(DateTime time) {
  return std::chrono::hh_mm_ss<std::chrono::seconds>(time - floor<days>(time));
}

std::string HourMinuteSecond(DateTime time) {
  const auto of_day = TimeOfDay(time);
  return Digits(static_cast<int>(of_day.hours().count()), 2) + ":" +
         Digits(static_cast<int>(of_day.minutes().count()), 2) + ":" +
         Digits(static_cast<int>(of_day.seconds().count()), 2);
}

// All of the text as a number without sign.
std::optional<int> Number(std::string_view digits) {
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool whole = error == std::errc() && end == digits.data() + digits.size() && digits.front() != '-';
  return whole ? std::optional(number) : std::nullopt;
}

// The years that a statement's date literal can carry.
std::optional<Date> Calendar(std::optional<int> of_year, std::optional<int> of_month, std::optional<int> of_day) {
  if (!of_year || !of_month || !of_day || *of_year < 100 || *of_year > 9999) {
    return std::nullopt;
  }
  const Date date(year(*of_year), month(static_cast<unsigned>(*of_month)), day(static_cast<unsigned>(*of_day)));
  return date.ok() ? std::optional(date) : std::nullopt;
}

using Parts = std::array<std::string_view, 3>;  // month, day and year

// As they stand in the text. Eight digits whose first two are no month begin with the year.
std::optional<Parts> TypedParts(std::string_view text) {
  const std::size_t first = text.find_first_of("/-");
  if (first == std::string_view::npos) {
    if (text.size() == 8 && Number(text.substr(0, 2)).value_or(0) > 12) {
      return Parts{text.substr(4, 2), text.substr(6), text.substr(0, 4)};
    }
    if (text.size() != 6 && text.size() != 8) {
      return std::nullopt;
    }
    return Parts{text.substr(0, 2), text.substr(2, 2), text.substr(4)};
  }
  const std::size_t second = text.find_first_of("/-", first + 1);
  if (second == std::string_view::npos) {
    return std::nullopt;
  }
  const std::string_view begin = text.substr(0, first);
  const std::string_view middle = text.substr(first + 1, second - first - 1);
  const std::string_view end = text.substr(second + 1);
  return begin.size() == 4 ? Parts{middle, end, begin} : Parts{begin, middle, end};
}

std::string Counted(int number, std::string_view unit) {
  return std::to_string(number) + " " + std::string(unit) + (number == 1 ? "" : "s");
}

}  // namespace

Date DateOf(DateTime time) {
  return Date(floor<days>(time));
}

DateTime AtMidnight(Date date) {
  return local_days(date);
}

std::optional<Date> ParseDate(std::string_view text, Date today) {
  const auto parts = TypedParts(Trim(text));
  if (!parts) {
    return std::nullopt;
  }
  const auto& [of_month, of_day, typed_year] = *parts;
  if (of_month.size() > 2 || of_day.size() > 2 || (typed_year.size() != 2 && typed_year.size() != 4)) {
    return std::nullopt;
  }
  std::optional<int> of_year = Number(typed_year);
  if (of_year && typed_year.size() == 2) {
    const int this_year = YearOf(today);
    of_year = this_year - (this_year - *of_year) % 100;
  }
  return Calendar(of_year, Number(of_month), Number(of_day));
}

std::optional<Date> ParseBirthDate(std::string_view text, Date today) {
  const auto date = ParseDate(text, today);
  if (!date || *date <= today || TypedParts(Trim(text))->at(2).size() > 2) {
    return date;
  }
  const Date before(date->year() - std::chrono::years(100), date->month(), date->day());
  return before.ok() ? std::optional(before) : std::nullopt;
}

std::string FormatShortDate(Date date) {
  return std::to_string(MonthOf(date)) + "/" + std::to_string(DayOf(date)) + "/" + Digits(YearOf(date), 4);
}

std::string FormatDashed(Date date) {
  return MonthDayYear(date, '-');
}

std::string FormatSlashed(Date date) {
  return MonthDayYear(date, '/');
}

std::string FormatTime(DateTime time) {
  const auto of_day = TimeOfDay(time);
  return Digits(static_cast<int>(std::chrono::make12(of_day.hours()).count()), 2) + ":" +
         Digits(static_cast<int>(of_day.minutes().count()), 2) + (std::chrono::is_am(of_day.hours()) ? " am" : " pm");
}

std::string FormatStamp(DateTime time) {
  return FormatSlashed(DateOf(time)) + " " + HourMinuteSecond(time);
}

std::string FormatIso(Date date) {
  return Digits(YearOf(date), 4) + "-" + Digits(MonthOf(date), 2) + "-" + Digits(DayOf(date), 2);
}

std::string FormatIso(DateTime time) {
  return FormatIso(DateOf(time)) + " " + HourMinuteSecond(time);
}

std::optional<DateTime> ParseIso(std::string_view text) {
  constexpr std::string_view kShape = "0000-00-00 00:00:00";
  constexpr std::size_t kDateSize = 10;
  if (text.size() != kDateSize && text.size() != kShape.size()) {
    return std::nullopt;
  }
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (kShape[i] == '0' ? !IsDigit(text[i]) : text[i] != kShape[i]) {
      return std::nullopt;
    }
  }
  const auto date = Calendar(Number(text.substr(0, 4)), Number(text.substr(5, 2)), Number(text.substr(8, 2)));
  if (!date || text.size() == kDateSize) {
    return date ? std::optional(AtMidnight(*date)) : std::nullopt;
  }
  const int hour = *Number(text.substr(11, 2));
  const int minute = *Number(text.substr(14, 2));
  const int second = *Number(text.substr(17, 2));
  if (hour > 23 || minute > 59 || second > 59) {
    return std::nullopt;
  }
  return AtMidnight(*date) + std::chrono::hours(hour) + std::chrono::minutes(minute) + std::chrono::seconds(second);
}

std::optional<Age> AgeAt(Date birth, Date today) {
  if (today < birth) {
    return std::nullopt;
  }
  const int months =
      (YearOf(today) - YearOf(birth)) * 12 + MonthOf(today) - MonthOf(birth) - (DayOf(today) < DayOf(birth) ? 1 : 0);
  return Age{.years = months / 12, .months = months % 12};
}

std::string FormatAge(Age age) {
  if (age.years == 0) {
    return Counted(age.months, "month");
  }
  return Counted(age.years, "year") + (age.months == 0 ? "" : " " + Counted(age.months, "month"));
}

}  // namespace forms
