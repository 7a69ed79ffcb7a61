#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "forms/dates.h"
#include "session/value.h"

namespace data {

// How a column's value stands in a field, and is read back from it.
struct Format {
  std::string_view what;  // for a refusal: "date"
  std::string (*show)(const session::Value& value);
  // Nothing when the text, which is not empty, is no such value. `today` settles years of two digits.
  std::optional<session::Value> (*take)(std::string_view text, forms::Date today);
};

// As it is.
extern const Format kPlain;
// "MM-DD-YYYY"; read as `forms::ParseDate` reads.
extern const Format kDate;
// The same for what is still to come: a two-digit year is the one closest to `today`'s.
extern const Format kComingDate;
// A day of every year, kept and shown as "mm-dd".
extern const Format kMonthDay;
// "$1,234.50".
extern const Format kCurrency;
// A share: 0.8 is "80.0%"; "80" and "80 %" are read as 0.8.
extern const Format kPercent;
// How many hours of a year, not negative: "80", "37.5".
extern const Format kHours;
// A flag: "Y" or "N".
extern const Format kYesNo;
// As `forms::FormatPhone` shows it; kept as it is shown.
extern const Format kPhone;
// As `forms::MaskedCardNumber` shows it: a field that has it only looks.
extern const Format kCardNumber;

}  // namespace data
