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
  std::string without;
  while (!text.empty()) {
    const auto run = static_cast<std::size_t>(std::ranges::find_if_not(text, IsDigit) - text.begin());
    const std::string_view digits = text.substr(0, run);
    without += run >= kFewest && run <= kMost ? MaskedCardNumber(digits) : std::string(digits);
    text.remove_prefix(run);
    const auto rest = static_cast<std::size_t>(std::ranges::find_if(text, IsDigit) - text.begin());
    without += text.substr(0, rest);
    text.remove_prefix(rest);
  }
  return without;
}

}  // namespace forms
