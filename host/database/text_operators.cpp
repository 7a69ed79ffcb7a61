#include "database/text_operators.h"

#include <algorithm>
#include <array>
#include <optional>

#include "database/folded_text.h"
#include "database/schema.h"

namespace host::sql {
namespace {

template <std::size_t Count>
bool IsAny(const Token& token, const std::array<std::string_view, Count>& words) {
  return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return token.Is(word); });
}

// A call of `function` with its arguments between "(" and ")".
bool YieldsText(const Tokens& tokens, const Token& function, std::size_t open) {
  constexpr std::array<std::string_view, 8> kFunctions = {"UPPER", "LOWER",     "TRIM",    "LTRIM",
                                                          "RTRIM", "SUBSTRING", "REPLACE", "CHAR"};
  constexpr std::array<std::string_view, 6> kTypes = {"NVARCHAR", "VARCHAR", "NCHAR", "CHAR", "NTEXT", "TEXT"};
  if (!function.Is("CAST")) {
    return IsAny(function, kFunctions);
  }
  const std::size_t as = FindWord(tokens, open + 1, "AS");
  return as + 1 < tokens.size() && IsAny(tokens[as + 1], kTypes);
}

// Whether what ends with the token, or begins with it, is text.
bool EndsText(const Tokens& tokens, std::size_t i) {
  if (tokens[i].Is(')')) {
    const std::size_t open = GroupOf(tokens, i);
    if (open > 0 && tokens[open - 1].kind == Kind::Word) {
      return YieldsText(tokens, tokens[open - 1], open);
    }
    return i > 0 && EndsText(tokens, i - 1);
  }
  return tokens[i].kind == Kind::Text || (tokens[i].IsName() && IsTextColumn(tokens[i].text));
}

bool BeginsText(const Tokens& tokens, std::size_t i) {
  while (i + 2 < tokens.size() && tokens[i].IsName() && tokens[i + 1].Is('.')) {
    i += 2;
  }
  if (i >= tokens.size()) {
    return false;
  }
  if (tokens[i].Is('(')) {
    return BeginsText(tokens, i + 1);
  }
  if (i + 1 < tokens.size() && tokens[i].kind == Kind::Word && tokens[i + 1].Is('(')) {
    return YieldsText(tokens, tokens[i], i + 1);
  }
  return tokens[i].kind == Kind::Text || (tokens[i].IsName() && IsTextColumn(tokens[i].text));
}

constexpr char kEscape = '\\';

// The pattern with classes of one character written by the escape character; nothing when it has others.
std::optional<std::string> Escaped(std::string_view pattern) {
  std::string escaped;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    char c = pattern[i];
    bool literal = c == kEscape;
    if (const std::size_t end = pattern.find(']', i + 2); c == '[' && end != std::string_view::npos) {
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

}  // namespace

void JoinTexts(Tokens& statement) {
  for (std::size_t i = 1; i + 1 < statement.size(); ++i) {
    if (statement[i].Is('+') && (EndsText(statement, i - 1) || BeginsText(statement, i + 1))) {
      statement[i].text = "||";
      // The left side's order counts where what is joined is compared, so it knows all letters.
      Insert(statement, i, Words("COLLATE UNICODE_NOCASE"));
      i += 2;
    }
  }
}

void TranslatePatterns(Tokens& statement) {
  for (std::size_t i = 0; i + 1 < statement.size(); ++i) {
    Token& pattern = statement[i + 1];
    const bool escapes = i + 2 < statement.size() && statement[i + 2].Is("ESCAPE");
    if (!statement[i].Is("LIKE") || pattern.kind != Kind::Text || escapes) {
      continue;
    }
    if (HasCaseBeyondAscii(pattern.text)) {
      statement[i].text = "MATCH";
    } else if (pattern.text.find('[') != std::string::npos) {
      if (auto escaped = Escaped(pattern.text)) {
        pattern.text = std::move(*escaped);
        if (pattern.text.find(kEscape) != std::string::npos) {
          Insert(statement, i + 2, {{Kind::Word, "ESCAPE"}, {Kind::Text, std::string(1, kEscape)}});
        }
      } else {
        statement[i].text = "MATCH";
      }
    }
  }
}

void FoldComparisons(Tokens& statement) {
  constexpr std::array<std::string_view, 4> kConditions = {"WHERE", "ON", "HAVING", "WHEN"};
  constexpr std::array<std::string_view, 7> kComparisons = {"=", "<>", "!=", "<", "<=", ">", ">="};
  bool condition = false;
  for (std::size_t i = 0; i + 1 < statement.size(); ++i) {
    condition = condition || IsAny(statement[i], kConditions);
    const bool compares =
        statement[i].kind == Kind::Symbol && std::ranges::find(kComparisons, statement[i].text) != kComparisons.end();
    if (condition && compares && statement[i + 1].kind == Kind::Text && HasCaseBeyondAscii(statement[i + 1].text)) {
      Insert(statement, i + 2, Words("COLLATE UNICODE_NOCASE"));
    }
  }
}

}  // namespace host::sql
