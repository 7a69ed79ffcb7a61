#pragma once

#include <string>
#include <string_view>

namespace insurance {

// The group number of a plan that has none: "$$" and what is left of the carrier's name, or of the plan's where that is
// blank, without blanks and doubled vowels; at most ten characters. "$$Default" where both are blank.
std::string DefaultGroupNumber(std::string_view carrier_name, std::string_view plan_name);

}  // namespace insurance
