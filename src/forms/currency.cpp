#include "forms/currency.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <stdexcept>

#include "forms/text.h"

namespace forms {
namespace {

constexpr std::size_t kDecimals = 4;

// With the blanks behind it.
bool TakeFront(std::string_view& text, char wanted) {
  if (text.empty() || text.front() != wanted) {
    return false;
  }
  text = Trim(text.substr(1));
  return true;
}

// Takes "-", "$" or "(" and ")" off; nothing when they do not match.
std::optional<bool> TakeSign(std::string_view& text) {
  if (TakeFront(text, '(')) {
    if (text.empty() || text.back() != ')') {
      return std::nullopt;
    }
    text.remove_suffix(1);
    text = Trim(text);
    TakeFront(text, '$');
    return true;
  }
  TakeFront(text, '$');
  const bool negative = TakeFront(text, '-');
  if (!negative) {
    TakeFront(text, '+');
  }
  TakeFront(text, '$');
  return negative;
}

// Whether the decimals past the fourth round the last kept digit up.
bool RoundsUp(std::string_view rest, bool odd) {
  if (rest.empty() || rest.front() != '5') {
    return !rest.empty() && rest.front() > '5';
  }
  return odd || rest.find_first_not_of('0', 1) != std::string_view::npos;
}

std::uint64_t Magnitude(Currency amount) {
  const auto units = static_cast<std::uint64_t>(amount.TenThousandths());
  return amount.TenThousandths() < 0 ? 0 - units : units;
}

}  // namespace

std::optional<Currency> Currency::Parse(std::string_view text) {
  text = Trim(text);
  const std::optional<bool> negative = TakeSign(text);
  if (!negative) {
    return std::nullopt;
  }
  const std::size_t point = std::min(text.find('.'), text.size());
  std::string digits;
  for (const char c : text.substr(0, point)) {
    if (c != ',' || digits.empty()) {
      digits.push_back(c);
    }
  }
  const std::string_view fraction = point == text.size() ? std::string_view() : text.substr(point + 1);
  if (digits.empty() && fraction.empty()) {
    return std::nullopt;
  }
  digits.append(fraction.substr(0, kDecimals));
  digits.append(kDecimals - std::min(fraction.size(), kDecimals), '0');
  const std::string_view rest = fraction.substr(std::min(fraction.size(), kDecimals));

  std::uint64_t units = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), units);
  if (error != std::errc() || end != digits.data() + digits.size() || !std::ranges::all_of(rest, IsDigit)) {
    return std::nullopt;
  }
  constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  if (units <= kMost && RoundsUp(rest, units % 2 == 1)) {
    ++units;
  }
  if (units > (*negative ? kMost + 1 : kMost)) {
    return std::nullopt;
  }
  return Currency(static_cast<std::int64_t>(*negative ? 0 - units : units));
}

Currency Currency::RoundedToCents() const {
  const std::int64_t over = units_ % 100;
  const std::int64_t cents = units_ / 100 + (over >= 50 ? 1 : 0) - (over <= -50 ? 1 : 0);
  std::int64_t units = 0;
  if (__builtin_mul_overflow(cents, std::int64_t{100}, &units)) {
    throw std::overflow_error("the amount is too large");
  }
  return Currency(units);
}

Currency Currency::operator+(Currency other) const {
  std::int64_t sum = 0;
  if (__builtin_add_overflow(units_, other.units_, &sum)) {
    throw std::overflow_error("the amount is too large");
  }
  return Currency(sum);
}

Currency Currency::operator-(Currency other) const {
  std::int64_t difference = 0;
  if (__builtin_sub_overflow(units_, other.units_, &difference)) {
    throw std::overflow_error("the amount is too large");
  }
  return Currency(difference);
}

std::string ToPlainText(Currency amount) {
  const std::uint64_t units = Magnitude(amount);
  std::string fraction = std::to_string(units % 10000 + 10000).substr(1);
  fraction.erase(fraction.find_last_not_of('0') + 1);
  return (amount.TenThousandths() < 0 ? "-" : "") + std::to_string(units / 10000) +
         (fraction.empty() ? "" : "." + fraction);
}

std::string FormatCurrency(Currency amount) {
  const std::uint64_t cents = (Magnitude(amount) + 50) / 100;
  std::string text = std::to_string(cents / 100);
  for (std::size_t place = text.size(); place > 3;) {
    place -= 3;
    text.insert(place, 1, ',');
  }
  text = "$" + text + "." + std::to_string(cents % 100 + 100).substr(1);
  return amount.TenThousandths() < 0 && cents != 0 ? "(" + text + ")" : text;
}

std::string FormatPercent(double share) {
  // Room for the largest double with its decimals.
  std::array<char, std::numeric_limits<double>::max_exponent10 + 16> buffer{};
  const auto result =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), share * 100, std::chars_format::fixed, kDecimals);
  std::string text(buffer.data(), result.ptr);
  const std::size_t point = text.find('.');
  if (point != std::string::npos) {
    text.erase(std::max(text.find_last_not_of('0') + 1, point + 2));
  }
  return (text == "-0.0" ? "0.0" : text) + "%";
}

}  // namespace forms
