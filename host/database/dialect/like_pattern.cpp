#include "database/dialect/like_pattern.h"

#include "forms/text.h"

namespace host::sql {
namespace {

// "[a-f]" as a bracket expression, whose every other character is escaped. A range that runs backwards holds nothing.
void AppendClass(std::u32string& expression, std::u32string_view members) {
  const bool excluded = members.starts_with(U'^');
  std::u32string held;
  const auto hold = [&](char32_t c) {
    const bool plain = c >= 0x80 || (c >= U'0' && c <= U'9') || (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z');
    held += plain ? std::u32string(1, c) : std::u32string{U'\\', c};
  };
  for (std::size_t i = excluded ? 1 : 0; i < members.size(); ++i) {
    if (i + 2 < members.size() && members[i + 1] == U'-') {
      if (members[i] <= members[i + 2]) {
        hold(members[i]);
        held += U'-';
        hold(members[i + 2]);
      }
      i += 2;
    } else {
      hold(members[i]);
    }
  }
  if (held.empty()) {
    expression += excluded ? U"." : U"$.";
  } else {
    expression += (excluded ? U"[^" : U"[") + held + U"]";
  }
}

}  // namespace

std::optional<std::string> EscapedPattern(std::string_view pattern) {
  std::string escaped;
  std::size_t end = 0;  // of the class
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    char c = pattern[i];
    bool literal = c == kEscape;
    if (c == '[' && end < i + 2) {
      end = pattern.find(']', i + 2);
    }
    if (c == '[' && end != std::string_view::npos) {
      if (end != i + 2 || pattern[i + 1] == '^') {
        return std::nullopt;
      }
      c = pattern[i + 1];
      literal = c == '%' || c == '_' || c == kEscape;
      i = end;
    }
    if (literal) {
      escaped += kEscape;
    }
    escaped += c;
  }
  return escaped;
}

std::string RegularExpression(std::string_view pattern) {
  const std::u32string characters = forms::ToUtf32(pattern);
  const std::u32string_view rest = characters;
  std::u32string expression = U"^";
  std::size_t close = 0;
  for (std::size_t i = 0; i < rest.size(); ++i) {
    const char32_t c = rest[i];
    if (c == U'[' && close < i + 2) {
      close = rest.find(U']', i + 2);
    }
    if (c == U'[' && close != std::u32string_view::npos) {
      AppendClass(expression, rest.substr(i + 1, close - i - 1));
      i = close;
    } else if (c == U'%') {
      expression += U".*";
    } else if (c == U'_') {
      expression += U'.';
    } else {
      if (std::u32string_view(U"\\^$.|?*+()[]{}").find(c) != std::u32string_view::npos) {
        expression += U'\\';
      }
      expression += c;
    }
  }
  return forms::ToUtf8(expression + U"$");
}

std::string PrefixOf(std::string_view escaped) {
  std::string prefix;
  for (std::size_t i = 0; i < escaped.size() && escaped[i] != '%' && escaped[i] != '_'; ++i) {
    i += escaped[i] == kEscape && i + 1 < escaped.size() ? 1U : 0U;
    prefix += escaped[i];
  }
  return prefix;
}

}  // namespace host::sql
