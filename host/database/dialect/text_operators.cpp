#include "database/dialect/text_operators.h"

#include <algorithm>
#include <array>

#include "database/dialect/folded_text.h"
#include "database/dialect/like_pattern.h"
#include "database/dialect/operands.h"

namespace host::sql {
namespace {

template <std::size_t Count>
bool IsAny(const Token& token, const std::array<std::string_view, Count>& words) {
  return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return token.Is(word); });
}

}  // namespace

void JoinTexts(Tokens& statement) {
  Edits edits(statement);
  Operands operands(statement);
  for (std::size_t i = 1; i + 1 < statement.size(); ++i) {
    if (statement[i].Is('+') && (IsText(operands.Ending(i - 1)) || IsText(operands.Beginning(i + 1)))) {
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
      if (auto escaped = EscapedPattern(pattern.text)) {
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
