#pragma once

#include <string>
#include <string_view>

namespace forms {

// A telephone number as it is shown: ten digits, however they were separated, become "(555) 123-4567", and an
// extension ("x12", "ext. 12", "#12") stays behind them. Anything else is left as typed.
std::string FormatPhone(std::string_view typed);

}  // namespace forms
