#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace automation {

// Windows' text, UTF-16, from and to the program's, UTF-8. What is malformed becomes U+FFFD.
std::wstring ToWide(std::string_view text);
std::string ToUtf8(std::wstring_view text);
// "{01234567-89AB-CDEF-0123-456789ABCDEF}".
std::wstring ToWideText(const GUID& id);

}  // namespace automation
