#include "insurance/amounts.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "forms/text.h"

namespace insurance {
namespace {

using forms::Currency;

constexpr double kAll = 100;

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
  std::string_view number = forms::Trim(digits);
  if (number.empty()) {
    return 0;
  }
  const bool negative = number.front() == '-';
  if (negative || number.front() == '+') {
    number.remove_prefix(1);
  }
  if (number.empty() || !(forms::IsDigit(number.front()) || number.front() == '.')) {
    return std::nullopt;
  }
  double percent = 0;
  const auto [end, error] =
      std::from_chars(number.data(), number.data() + number.size(), percent, std::chars_format::fixed);
  if (end != number.data() + number.size()) {
    return std::nullopt;
  }
  if (error == std::errc::result_out_of_range) {  // by its whole digits, or by its decimals
    percent = number.find_first_not_of('0') < number.find('.') ? kAll : 0;
  }
  return negative ? 0 : std::min(percent, kAll);
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
