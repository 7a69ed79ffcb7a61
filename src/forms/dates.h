#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace forms {

using Date = std::chrono::year_month_day;
// Local wall-clock time.
using DateTime = std::chrono::local_seconds;

Date DateOf(DateTime time);
// Midnight of the day.
DateTime AtMidnight(Date date);

// A date as a person types it: month, day and year with "/" or "-" between them, or six or eight digits without
// ("010280", "01021980"); also with a year of four digits in front ("1980-01-02", "19800102"). A two-digit year lies in
// the hundred years up to `today`'s year. Nothing when it is no day of the calendar.
std::optional<Date> ParseDate(std::string_view text, Date today);
// The same for a birth: a two-digit year whose day has not come yet is of the century before.
std::optional<Date> ParseBirthDate(std::string_view text, Date today);

// The "Short Date" format of the practice: "1/2/1980".
std::string FormatShortDate(Date date);
// "MM-DD-YYYY": "01-02-1980".
std::string FormatDashed(Date date);
// "mm/dd/yyyy": "01/02/1980".
std::string FormatSlashed(Date date);
// "hh:nn am/pm": "02:05 pm".
std::string FormatTime(DateTime time);
// "MM/DD/YYYY HH:MM:SS": "01/02/1980 14:05:00".
std::string FormatStamp(DateTime time);
// "1980-01-02", and "1980-01-02 14:05:00".
std::string FormatIso(Date date);
std::string FormatIso(DateTime time);
// Either of the forms that `FormatIso` writes.
std::optional<DateTime> ParseIso(std::string_view text);

struct Age {
  int years = 0;
  int months = 0;

  friend bool operator==(const Age&, const Age&) = default;
};

// Whole years and months from birth to `today`; nothing before the birth.
std::optional<Age> AgeAt(Date birth, Date today);
// "41 years 3 months", "1 year", "0 months".
std::string FormatAge(Age age);

}  // namespace forms
