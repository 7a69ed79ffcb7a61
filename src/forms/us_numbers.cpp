#include "forms/us_numbers.h"

#include <algorithm>

#include "forms/text.h"

namespace forms {
namespace {

bool IsNineDigits(std::string_view text) {
  return text.size() == 9 && std::ranges::all_of(text, IsDigit);
}

}  // namespace

std::string FormatSsn(std::string_view typed) {
  const std::string ssn(Trim(typed));
  return IsNineDigits(ssn) ? ssn.substr(0, 3) + "-" + ssn.substr(3, 2) + "-" + ssn.substr(5) : std::string(typed);
}

std::string FormatZip(std::string_view typed) {
  const std::string zip(Trim(typed));
  return IsNineDigits(zip) ? zip.substr(0, 5) + "-" + zip.substr(5) : std::string(typed);
}

}  // namespace forms
