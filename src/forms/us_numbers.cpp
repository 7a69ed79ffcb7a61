#include "forms/us_numbers.h"

#include <algorithm>

#include "forms/phone.h"
#include "forms/text.h"

namespace forms {
namespace {

bool IsDigits(std::string_view text, std::size_t count) {
  return text.size() == count && std::ranges::all_of(text, IsDigit);
}

}  // namespace

std::string FormatTenDigits(std::string_view typed) {
  return IsDigits(Trim(typed), 10) ? FormatPhone(typed) : std::string(typed);
}

std::string FormatSsn(std::string_view typed) {
  const std::string ssn(Trim(typed));
  return IsDigits(ssn, 9) ? ssn.substr(0, 3) + "-" + ssn.substr(3, 2) + "-" + ssn.substr(5) : std::string(typed);
}

std::string FormatZip(std::string_view typed) {
  const std::string zip(Trim(typed));
  return IsDigits(zip, 9) ? zip.substr(0, 5) + "-" + zip.substr(5) : std::string(typed);
}

}  // namespace forms
