#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace recall {

// A variable of the reminders' texts, as it stands in them: "{Patient First Name}".
struct TemplateVariable {
  std::string_view group;  // "Patient"
  std::string_view text;
};

// The choice of no variable, which no group has; where it stands in a text, nothing is said.
inline constexpr std::string_view kNoVariable = "{None}";

// Every variable, group by group.
std::span<const TemplateVariable> TemplateVariables();
// One of them, or `kNoVariable`.
bool IsTemplateVariable(std::string_view text);

// The text with the names that variables have today in the place of those that they had; the same once it has them.
std::string WithCurrentVariables(std::string text);

struct TextRange {
  std::size_t begin = 0;  // bytes
  std::size_t size = 0;

  friend bool operator==(const TextRange&, const TextRange&) = default;
};
// What stands in braces on one line and is no variable, from its opening brace to the closing one.
std::vector<TextRange> UnknownVariables(std::string_view text);

}  // namespace recall
