#pragma once

#include <optional>
#include <string>
#include <string_view>

// Patterns of the dialect's "Like" as engines have them.
namespace host::sql {

// What stands before a character that means itself.
inline constexpr char kEscape = '\\';

// The pattern with classes of one character ("[%]") written by the escape character; nothing when it has others.
std::optional<std::string> EscapedPattern(std::string_view pattern);
// The same as a regular expression of PostgreSQL, for any pattern.
std::string RegularExpression(std::string_view pattern);
// The characters that what matches an escaped pattern begins with.
std::string PrefixOf(std::string_view escaped);

}  // namespace host::sql
