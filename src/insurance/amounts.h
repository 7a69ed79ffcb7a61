#pragma once

#include <optional>
#include <string_view>

#include "forms/currency.h"
#include "forms/user.h"

// What a person types into a field of money or of a share. What is not understood is nothing.
namespace insurance {

// Without an amount's sign: at most so much.
inline constexpr forms::Currency kMostAmount = forms::Currency::FromTenThousandths(9'999'999'900);

// From 0 to `kMostAmount`; "$1,234.50", "$ 1234.5" and "1234.5" are the same.
std::optional<forms::Currency> AmountOf(std::string_view text);
// In percent, without an exponent. What is below 0 is 0, what is above 100 is 100 however many digits it has, and
// nothing typed is 0; "80", "+80", "80 %" and "%80" are the same.
std::optional<double> PercentOf(std::string_view text);

// The same, telling what is none; `field` names it.
std::optional<forms::Currency> ReadAmount(forms::User& user, std::string_view field, std::string_view text);
std::optional<double> ReadPercent(forms::User& user, std::string_view field, std::string_view text);

}  // namespace insurance
