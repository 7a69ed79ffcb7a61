#pragma once

#include <string>
#include <string_view>

namespace forms {

// Ten bare digits as "(555) 123-4567". Anything else is left as typed.
std::string FormatTenDigits(std::string_view typed);
// Nine bare digits as "123-45-6789". Anything else is left as typed.
std::string FormatSsn(std::string_view typed);
// Nine bare digits as "62701-1234". Anything else is left as typed.
std::string FormatZip(std::string_view typed);

}  // namespace forms
