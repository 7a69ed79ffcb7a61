#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace forms {

// An amount of money, fixed point with four decimals. Arithmetic past its range (some 922 million million) throws
// std::overflow_error.
class Currency {
 public:
  constexpr Currency() = default;
  static constexpr Currency FromTenThousandths(std::int64_t units) { return Currency(units); }
  // At most 900 million million.
  static constexpr Currency FromWhole(std::int64_t amount) { return Currency(amount * kScale); }
  // A sign, "$" and thousands commas may stand there; "(1.00)" is negative. Further decimals are rounded half to
  // even. Nothing when the text is no amount or does not fit.
  static std::optional<Currency> Parse(std::string_view text);

  constexpr std::int64_t TenThousandths() const { return units_; }
  constexpr bool IsZero() const { return units_ == 0; }
  // Half a cent goes away from zero.
  Currency RoundedToCents() const;

  Currency operator-() const { return Currency() - *this; }
  Currency operator+(Currency other) const;
  Currency operator-(Currency other) const;
  constexpr auto operator<=>(const Currency&) const = default;  // NOLINT(modernize-use-nullptr): clang 14 sees a 0

 private:
  static constexpr std::int64_t kScale = 10000;
  explicit constexpr Currency(std::int64_t units) : units_(units) {}

  std::int64_t units_ = 0;
};

// Plain, as a statement takes it: "1234.5", "-0.0001".
std::string ToPlainText(Currency amount);
// The "Currency" format, rounded to cents: "$1,234.50", "($1,234.50)".
std::string FormatCurrency(Currency amount);
// The "0.0###%" format of a share: 0.8 is "80.0%", 0.123456 is "12.3456%".
std::string FormatPercent(double share);

}  // namespace forms
