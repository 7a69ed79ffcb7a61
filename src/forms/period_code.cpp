#include "forms/period_code.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "forms/text.h"

namespace forms {
namespace {

constexpr std::size_t kMaxLength = 5;

std::int32_t DaysOf(PeriodUnit unit) {
  switch (unit) {
    case PeriodUnit::Days:
      return 1;
    case PeriodUnit::Months:
      return 30;
    case PeriodUnit::Years:
      return 365;
  }
  return 0;
}

std::string WordOf(PeriodUnit unit) {
  switch (unit) {
    case PeriodUnit::Days:
      return "day";
    case PeriodUnit::Months:
      return "month";
    case PeriodUnit::Years:
      return "year";
  }
  return {};
}

}  // namespace

std::optional<PeriodUnit> ParsePeriodUnit(std::string_view letter) {
  const std::string trimmed = ToUpper(Trim(letter));
  if (trimmed == "D") {
    return PeriodUnit::Days;
  }
  if (trimmed == "M") {
    return PeriodUnit::Months;
  }
  return trimmed == "Y" ? std::optional(PeriodUnit::Years) : std::nullopt;
}

std::int32_t PeriodNumber(std::string_view text) {
  using Limits = std::numeric_limits<std::int32_t>;
  text = Trim(text);
  if (text.starts_with('+')) {
    text.remove_prefix(1);
  }
  text = text.substr(0, text.find_first_not_of("-.0123456789"));
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
  return static_cast<std::int32_t>(std::clamp<double>(std::nearbyint(number), Limits::min(), Limits::max()));
}

std::optional<PeriodCode> PeriodCode::Parse(std::string_view text) {
  text = Trim(text);
  if (text.empty() || text.size() > kMaxLength) {
    return std::nullopt;
  }
  const auto unit = ParsePeriodUnit(text.substr(text.size() - 1));
  if (!unit) {
    return std::nullopt;
  }
  return PeriodCode{.number = PeriodNumber(text.substr(0, text.size() - 1)), .unit = *unit};
}

std::int32_t PeriodCode::Days() const {
  std::int32_t in_days = 0;
  if (__builtin_mul_overflow(number, DaysOf(unit), &in_days)) {
    throw std::overflow_error("the period is too long");
  }
  return in_days;
}

std::string PeriodCode::Text() const {
  return std::to_string(number) + static_cast<char>(unit);
}

std::string PeriodCode::Words() const {
  return number <= 0 ? std::string() : std::to_string(number) + " " + WordOf(unit) + (number > 1 ? "s" : "");
}

}  // namespace forms
