#pragma once

#include <string>
#include <string_view>

// Comparing text without regard to case beyond ASCII, which SQLite's own comparisons leave out.
namespace host {

// Whether the text has letters beyond ASCII that come in two cases.
bool HasCaseBeyondAscii(std::string_view utf8);
// Equal for texts that differ in case only.
std::u32string Folded(std::string_view utf8);
// Less than, equal to or greater than 0 as the folded texts compare.
int CompareFolded(std::string_view left, std::string_view right);
// Whether a folded text matches a folded pattern of `Like`: "%" any text, "_" any character, "[a-f%]" one of these,
// "[^a-f]" none of these. A bracket that is not closed stands for itself.
bool MatchesPattern(std::u32string_view pattern, std::u32string_view text);

}  // namespace host
