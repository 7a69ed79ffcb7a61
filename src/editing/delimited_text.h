#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace editing {

// A spreadsheet on Windows takes a file for UTF-8 that begins so.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Puts a row behind `text` as RFC 4180 has it: cells parted by the separator, in quotes where they need them, CR LF at
// the end. What a spreadsheet would run as a formula is `Harmless`.
void AddDelimitedRow(std::string& text, const std::vector<std::string>& cells, char separator);

// An apostrophe stands before what begins as a formula does ("=", "+", "-", "@", a tab or a CR). A sign with digits,
// blanks, points, commas and parentheses alone behind it is a number or a telephone, and stays as it is.
std::string Harmless(std::string_view cell);

}  // namespace editing
