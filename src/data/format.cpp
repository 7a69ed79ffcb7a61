#include "data/format.h"

#include <charconv>

#include "forms/card_number.h"
#include "forms/currency.h"
#include "forms/phone.h"
#include "forms/text.h"

namespace data {
namespace {

using forms::Currency;
using forms::Date;
using session::Value;

std::string ShowText(const Value& value) {
  return session::ToText(value);
}

std::optional<Value> TakeText(std::string_view text, Date /*today*/) {
  return Value(std::string(text));
}

std::string ShowDate(const Value& value) {
  const auto time = session::ToDateTime(value);
  return time ? forms::FormatDashed(forms::DateOf(*time)) : session::ToText(value);
}

std::optional<Value> TakeDate(std::string_view text, Date today) {
  const auto date = forms::ParseDate(text, today);
  return date ? std::optional<Value>(forms::AtMidnight(*date)) : std::nullopt;
}

std::optional<Value> TakeComingDate(std::string_view text, Date today) {
  constexpr std::chrono::years kAhead(49);
  return TakeDate(text, Date(today.year() + kAhead, std::chrono::January, std::chrono::day(1)));
}

// A leap year has every day that there is.
std::optional<Value> TakeMonthDay(std::string_view text, Date today) {
  text = forms::Trim(text);
  const bool digits = text.size() == 4 && text.find_first_of("/-") == std::string_view::npos;
  const auto date = forms::ParseDate(std::string(text) + (digits ? "2000" : "-2000"), today);
  return date ? std::optional<Value>(forms::FormatDashed(*date).substr(0, 5)) : std::nullopt;
}

std::string ShowCurrency(const Value& value) {
  const std::string text = session::ToText(value);
  const auto amount = Currency::Parse(text);
  return amount ? forms::FormatCurrency(*amount) : text;
}

std::optional<Value> TakeCurrency(std::string_view text, Date /*today*/) {
  const auto amount = Currency::Parse(text);
  return amount ? std::optional<Value>(*amount) : std::nullopt;
}

std::optional<double> Number(std::string_view text) {
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

std::string ShowPercent(const Value& value) {
  const std::string text = session::ToText(value);
  const auto share = Number(text);
  return share ? forms::FormatPercent(*share) : text;
}

std::optional<Value> TakePercent(std::string_view text, Date /*today*/) {
  text = forms::Trim(text);
  if (text.ends_with('%')) {
    text = forms::Trim(text.substr(0, text.size() - 1));
  }
  const auto percent = Number(text);
  return percent ? std::optional<Value>(*percent / 100) : std::nullopt;
}

std::optional<Value> TakeHours(std::string_view text, Date /*today*/) {
  constexpr double kOfAYear = 366 * 24;
  const auto hours = Number(forms::Trim(text));
  return hours && *hours >= 0 && *hours <= kOfAYear ? std::optional<Value>(*hours) : std::nullopt;
}

std::string ShowYesNo(const Value& value) {
  return forms::IsOn(session::ToText(value)) ? "Y" : "N";
}

std::optional<Value> TakeYesNo(std::string_view text, Date /*today*/) {
  const bool yes = forms::EqualsIgnoringCase(text, "Y");
  return yes || forms::EqualsIgnoringCase(text, "N") ? std::optional<Value>(std::int64_t{yes}) : std::nullopt;
}

std::string ShowPhone(const Value& value) {
  return forms::FormatPhone(session::ToText(value));
}

std::optional<Value> TakePhone(std::string_view text, Date /*today*/) {
  return Value(forms::FormatPhone(text));
}

std::string ShowCardNumber(const Value& value) {
  return forms::MaskedCardNumber(session::ToText(value));
}

}  // namespace

constexpr Format kPlain{"text", ShowText, TakeText};
constexpr Format kDate{"date", ShowDate, TakeDate};
constexpr Format kComingDate{"date", ShowDate, TakeComingDate};
constexpr Format kMonthDay{"month and day", ShowText, TakeMonthDay};
constexpr Format kCurrency{"amount", ShowCurrency, TakeCurrency};
constexpr Format kPercent{"percentage", ShowPercent, TakePercent};
constexpr Format kHours{"number of hours", ShowText, TakeHours};
constexpr Format kYesNo{"Y or N", ShowYesNo, TakeYesNo};
constexpr Format kPhone{"phone number", ShowPhone, TakePhone};
constexpr Format kCardNumber{"card number", ShowCardNumber, TakeText};

}  // namespace data
