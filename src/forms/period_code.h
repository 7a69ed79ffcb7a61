#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace forms {

enum class PeriodUnit : char { Days = 'D', Months = 'M', Years = 'Y' };

// Trimmed and upper-cased, exactly one of "M", "D", "Y"; nothing otherwise.
std::optional<PeriodUnit> ParsePeriodUnit(std::string_view letter);

// The number that the text begins with, 0 when it begins with none; rounded to a whole one, half to even.
std::int32_t PeriodNumber(std::string_view text);

// A span of time as recalls keep it: "30D", "6M", "2Y", at most five characters.
struct PeriodCode {
  std::int32_t number = 0;
  PeriodUnit unit = PeriodUnit::Days;

  // Nothing when the text is empty, too long, or has no unit letter; the number is read as far as it is one and
  // rounded to a whole number, half to even.
  static std::optional<PeriodCode> Parse(std::string_view text);

  // A month counts 30 days and a year 365; throws std::overflow_error past 32 bits.
  std::int32_t Days() const;
  // "30D".
  std::string Text() const;
  // "30 days", "1 year"; empty when the number is not positive.
  std::string Words() const;

  friend bool operator==(const PeriodCode&, const PeriodCode&) = default;
};

}  // namespace forms
