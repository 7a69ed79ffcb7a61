#include "forms/phone.h"

#include <algorithm>

#include "forms/text.h"

namespace forms {
namespace {

constexpr std::size_t kNumberLength = 10;

bool IsExtension(std::string_view text) {
  const std::size_t digits = text.find_first_of("0123456789");
  if (digits == std::string_view::npos || !std::ranges::all_of(text.substr(digits), IsDigit)) {
    return false;
  }
  const std::string sign = ToLower(Trim(text.substr(0, digits)));
  return sign == "x" || sign == "#" || sign == "ext" || sign == "ext.";
}

}  // namespace

std::string FormatPhone(std::string_view typed) {
  std::string digits;
  std::size_t i = 0;
  for (; i < typed.size() && digits.size() < kNumberLength; ++i) {
    if (IsDigit(typed[i])) {
      digits.push_back(typed[i]);
    } else if (std::string_view(" ()-./").find(typed[i]) == std::string_view::npos) {
      return std::string(typed);
    }
  }
  const std::string_view rest = Trim(typed.substr(i));
  if (digits.size() < kNumberLength || !(rest.empty() || IsExtension(rest))) {
    return std::string(typed);
  }
  return "(" + digits.substr(0, 3) + ") " + digits.substr(3, 3) + "-" + digits.substr(6) +
         (rest.empty() ? "" : " " + std::string(rest));
}

}  // namespace forms
