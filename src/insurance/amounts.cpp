#include "insurance/amounts.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "forms/text.h"

namespace insurance {
namespace {

using forms::Currency;

void TellFormat(forms::User& user, std::string_view field, const std::string& wanted) {
  user.Tell("The value entered into the " + std::string(field) + " field could not be converted to " + wanted,
            "Invalid Format", forms::Icon::Information);
}

void TellBound(forms::User& user, std::string_view field, std::string_view side, Currency bound) {
  user.Tell(
      std::string(field) + " field cannot be " + std::string(side) + " than " + forms::FormatCurrency(bound) + ".",
      "Invalid Amount", forms::Icon::Information);
}

}  // namespace

std::optional<Currency> AmountOf(std::string_view text) {
  const auto amount = Currency::Parse(text);
  return amount >= Currency() && amount <= kMostAmount ? amount : std::nullopt;
}

std::optional<double> PercentOf(std::string_view text) {
  std::string digits(text);
  std::erase(digits, '%');
  digits = forms::Trim(digits);
  if (digits.empty()) {
    return 0;
  }
  double percent = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), percent);
  if (error != std::errc() || end != digits.data() + digits.size() || !std::isfinite(percent)) {
    return std::nullopt;
  }
  return std::clamp(percent, 0.0, 100.0);
}

std::optional<Currency> ReadAmount(forms::User& user, std::string_view field, std::string_view text) {
  const auto amount = Currency::Parse(text);
  if (!amount) {
    TellFormat(user, field,
               "currency. Please enter a numeric value or use the Windows currency format: [ 1234.5 = " +
                   forms::FormatCurrency(Currency::FromTenThousandths(12'345'000)) + " ].");
  } else if (*amount < Currency()) {
    TellBound(user, field, "less", Currency());
  } else if (*amount > kMostAmount) {
    TellBound(user, field, "greater", kMostAmount);
  } else {
    return amount;
  }
  return std::nullopt;
}

std::optional<double> ReadPercent(forms::User& user, std::string_view field, std::string_view text) {
  const auto percent = PercentOf(text);
  if (!percent) {
    TellFormat(user, field,
               "a percentage. Please enter a numeric value or use the Windows percentage format: [ 100 = " +
                   forms::FormatPercent(1) + " ].");
  }
  return percent;
}

}  // namespace insurance
