#include "forms/card_number.h"

#include <algorithm>

#include "forms/text.h"

namespace forms {
namespace {

constexpr std::size_t kShown = 4;
constexpr std::size_t kFewest = 12;
constexpr std::size_t kMost = 19;

// The sum of its digits, every second one from the end doubled and taken as the sum of its own digits.
int CheckSum(std::string_view digits) {
  int sum = 0;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    const int digit = digits[digits.size() - 1 - i] - '0';
    const int weighed = i % 2 == 0 ? digit : 2 * digit;
    sum += weighed / 10 + weighed % 10;
  }
  return sum;
}

}  // namespace

std::string MaskedCardNumber(std::string_view number) {
  const auto digits = static_cast<std::size_t>(std::ranges::count_if(number, IsDigit));
  std::size_t hidden = digits > kShown ? digits - kShown : digits;
  std::string masked;
  for (const char c : number) {
    if (!IsDigit(c)) {
      continue;
    }
    masked += hidden > 0 ? '*' : c;
    hidden -= hidden > 0 ? 1 : 0;
  }
  return masked;
}

bool IsCardNumber(std::string_view typed) {
  std::string digits(typed);
  std::erase_if(digits, [](char c) { return c == ' ' || c == '-'; });
  return digits.size() >= kFewest && digits.size() <= kMost && std::ranges::all_of(digits, IsDigit) &&
         CheckSum(digits) % 10 == 0;
}

std::string WithoutCardNumbers(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789";
  constexpr std::string_view kNumber = "0123456789 -";
  std::string without;
  while (!text.empty()) {
    const std::size_t start = std::min(text.find_first_of(kDigits), text.size());
    without += text.substr(0, start);
    text.remove_prefix(start);
    const std::string_view parts = text.substr(0, text.find_first_not_of(kNumber));
    const std::string_view number = parts.substr(0, parts.find_last_of(kDigits) + 1);
    const auto digits = static_cast<std::size_t>(std::ranges::count_if(number, IsDigit));
    without += digits >= kFewest ? MaskedCardNumber(number) : std::string(number);
    text.remove_prefix(number.size());
  }
  return without;
}

}  // namespace forms
