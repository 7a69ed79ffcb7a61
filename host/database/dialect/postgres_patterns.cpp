#include "database/dialect/postgres_patterns.h"

#include "database/dialect/like_pattern.h"
#include "database/dialect/operands.h"
#include "database/dialect/postgres_comparisons.h"

namespace host::sql {
namespace {

// The last character there is.
constexpr std::string_view kLast = "\U0010FFFF";

void Append(Tokens& tokens, const Tokens& added) {
  tokens.insert(tokens.end(), added.begin(), added.end());
}

Tokens Range(const Tokens& column, const std::string& prefix) {
  Tokens range = Words("AND");
  Append(range, column);
  range.push_back({Kind::Symbol, ">="});
  range.push_back({Kind::Text, prefix});
  Append(range, Words("AND"));
  Append(range, column);
  range.push_back({Kind::Symbol, "<"});
  range.push_back({Kind::Text, prefix + std::string(kLast)});
  range.push_back({Kind::Symbol, ")", false});
  return range;
}

// A column, in parentheses or not.
bool IsColumn(const Tokens& tokens, std::size_t begin, std::size_t end) {
  for (std::size_t i = begin; i < end; ++i) {
    if (!tokens[i].IsName() && !tokens[i].Is('.') && !tokens[i].Is('(') && !tokens[i].Is(')')) {
      return false;
    }
  }
  return tokens[begin].kind != Kind::Word || begin + 1 >= end || !tokens[begin + 1].Is('(');
}

}  // namespace

void MatchPatterns(Tokens& statement) {
  Edits edits(statement);
  Operands operands(statement);
  for (std::size_t i = 1; i + 1 < statement.size(); ++i) {
    if (!statement[i].Is("LIKE")) {
      continue;
    }
    const bool negated = statement[i - 1].Is("NOT") && i > 1;
    const std::size_t end = negated ? i - 1 : i;
    const std::size_t begin = operands.Begin(end - 1);
    const auto type = operands.Ending(end - 1);
    std::size_t behind = operands.End(i + 1);
    while (behind + 1 < statement.size() && statement[behind].kind == Kind::Symbol && statement[behind].text == "||") {
      behind = operands.End(behind + 1);
    }
    if (type && !IsText(type)) {
      WrapAsText(edits, begin, end, *type);
    }
    Token& pattern = statement[i + 1];
    if (behind < statement.size() && statement[behind].Is("ESCAPE")) {
      continue;
    }
    if (pattern.kind != Kind::Text || behind != i + 2) {
      // Of other values a backslash is one.
      edits.Insert(behind, {{Kind::Word, "ESCAPE"}, {Kind::Text, {}}});
      continue;
    }
    auto escaped = EscapedPattern(pattern.text);
    if (!escaped) {
      pattern.text = RegularExpression(pattern.text);
      edits.Replace(end, i + 1, {{Kind::Symbol, negated ? "!~" : "~"}});
      continue;
    }
    pattern.text = std::move(*escaped);
    const std::string prefix = PrefixOf(pattern.text);
    if (!negated && !prefix.empty() && IsText(type) && IsColumn(statement, begin, end)) {
      Tokens column = Slice(statement, begin, end);
      column.front().apart = true;
      edits.Wrap(begin, behind, Words("("), Range(column, prefix));
    }
  }
  edits.Make();
}

}  // namespace host::sql
