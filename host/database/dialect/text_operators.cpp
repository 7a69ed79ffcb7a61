#include "database/dialect/text_operators.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>

#include "database/dialect/folded_text.h"
#include "database/schema.h"

namespace host::sql {
namespace {

template <std::size_t Count>
bool IsAny(const Token& token, const std::array<std::string_view, Count>& words) {
  return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return token.Is(word); });
}

// A call of the function before the "(" at `open`.
bool YieldsText(const Tokens& tokens, Groups& groups, std::size_t open) {
  constexpr std::array<std::string_view, 8> kFunctions = {"UPPER", "LOWER",     "TRIM",    "LTRIM",
                                                          "RTRIM", "SUBSTRING", "REPLACE", "CHAR"};
  constexpr std::array<std::string_view, 6> kTypes = {"NVARCHAR", "VARCHAR", "NCHAR", "CHAR", "NTEXT", "TEXT"};
  if (!tokens[open - 1].Is("CAST")) {
    return IsAny(tokens[open - 1], kFunctions);
  }
  // The type stands last, with or without its size.
  std::size_t type = groups.End(open + 1) - 1;
  if (tokens[type].Is(')')) {
    type = groups.Open(type) - 1;
  }
  return type > open + 1 && tokens[type - 1].Is("AS") && IsAny(tokens[type], kTypes);
}

bool IsText(const Token& token) {
  return token.kind == Kind::Text || (token.IsName() && IsTextColumn(token.text));
}

// Whether what ends with the token, or begins with it, is text.
bool EndsText(const Tokens& tokens, Groups& groups, std::size_t i) {
  for (; i > 0 && tokens[i].Is(')'); --i) {
    const std::size_t open = groups.Open(i);
    if (open > 0 && tokens[open - 1].kind == Kind::Word) {
      return YieldsText(tokens, groups, open);
    }
  }
  return IsText(tokens[i]);
}

bool BeginsText(const Tokens& tokens, Groups& groups, std::size_t i) {
  for (;;) {
    if (i >= tokens.size()) {
      return false;
    }
    if (i + 2 < tokens.size() && tokens[i].IsName() && tokens[i + 1].Is('.')) {
      i += 2;
    } else if (tokens[i].Is('(')) {
      ++i;
    } else {
      break;
    }
  }
  if (i + 1 < tokens.size() && tokens[i].kind == Kind::Word && tokens[i + 1].Is('(')) {
    return YieldsText(tokens, groups, i + 1);
  }
  return IsText(tokens[i]);
}

constexpr char kEscape = '\\';

// The pattern with classes of one character written by the escape character; nothing when it has others.
std::optional<std::string> Escaped(std::string_view pattern) {
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

}  // namespace

void JoinTexts(Tokens& statement) {
  Edits edits(statement);
  Groups groups(statement);
  for (std::size_t i = 1; i + 1 < statement.size(); ++i) {
    if (statement[i].Is('+') && (EndsText(statement, groups, i - 1) || BeginsText(statement, groups, i + 1))) {
      statement[i].text = "||";
      // The left side's order counts where what is joined is compared, so it knows all letters.
      edits.Insert(i, Words("COLLATE UNICODE_NOCASE"));
    }
  }
  edits.Make();
}

void TranslatePatterns(Tokens& statement) {
  Edits edits(statement);
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
          edits.Insert(i + 2, {{Kind::Word, "ESCAPE"}, {Kind::Text, std::string(1, kEscape)}});
        }
      } else {
        statement[i].text = "MATCH";
      }
    }
  }
  edits.Make();
}

namespace {

// What a comparison with the texts from `from` to `to` takes, if anything. A column has an order without regard to case
// of its own, what a function yields has none.
std::string_view CollationFor(const Tokens& statement, std::size_t left, std::size_t from, std::size_t to) {
  const bool computed = statement[left].Is(')') || statement[left].Is("END");
  std::string_view collation;
  for (std::size_t i = from; i < to; ++i) {
    if (statement[i].kind != Kind::Text) {
      continue;
    }
    if (HasCaseBeyondAscii(statement[i].text)) {
      return "COLLATE UNICODE_NOCASE";
    }
    const bool letters =
        std::ranges::any_of(statement[i].text, [](char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; });
    if (computed && letters) {
      collation = "COLLATE NOCASE";
    }
  }
  return collation;
}

}  // namespace

void FoldComparisons(Tokens& statement) {
  constexpr std::array<std::string_view, 4> kConditions = {"WHERE", "ON", "HAVING", "WHEN"};
  constexpr std::array<std::string_view, 7> kComparisons = {"=", "<>", "!=", "<", "<=", ">", ">="};
  Edits edits(statement);
  Groups groups(statement);
  bool condition = false;
  for (std::size_t i = 1; i + 1 < statement.size(); ++i) {
    condition = condition || IsAny(statement[i - 1], kConditions);
    const Token& token = statement[i];
    const bool compares =
        token.kind == Kind::Symbol && std::ranges::find(kComparisons, token.text) != kComparisons.end();
    const bool in =
        token.Is("IN") && statement[i + 1].Is('(') && i + 2 < statement.size() && !statement[i + 2].Is("SELECT");
    const bool between = token.Is("BETWEEN") && i + 3 < statement.size();
    if (!condition || !(compares || in || between)) {
      continue;
    }
    const std::size_t end = in ? groups.After(i + 1) : between ? i + 4 : i + 2;
    const std::size_t operation = statement[i - 1].Is("NOT") ? i - 1 : i;
    const std::string_view collation = CollationFor(statement, operation - 1, i + 1, end);
    if (!collation.empty()) {
      // One that stands with the left side is good for all that it is compared with.
      edits.Insert(compares ? end : operation, Words(collation));
    }
  }
  edits.Make();
}

}  // namespace host::sql
