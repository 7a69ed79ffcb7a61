#include "lookup/list_statement.h"

#include <algorithm>
#include <cctype>

#include "data/literal.h"
#include "forms/text.h"

namespace lookup {
namespace {

using data::Sql;

// A word, a bracketed or quoted name, or a single sign outside all parentheses.
struct Token {
  std::size_t begin = 0;
  std::size_t end = 0;
  std::string word;  // upper case; empty for what is quoted
};

bool IsWordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '@' || static_cast<signed char>(c) < 0;
}

// Behind the quoted text, bracketed name, word or sign that begins here. A doubled closing quote stands for itself.
std::size_t EndOfToken(std::string_view sql, std::size_t begin) {
  const char first = sql[begin];
  std::size_t end = begin + 1;
  if (first == '\'' || first == '"' || first == '[') {
    const char closing = first == '[' ? ']' : first;
    while (end < sql.size()) {
      if (sql[end++] == closing) {
        if (end == sql.size() || sql[end] != closing) {
          break;
        }
        ++end;
      }
    }
  } else if (IsWordCharacter(first)) {
    while (end < sql.size() && IsWordCharacter(sql[end])) {
      ++end;
    }
  }
  return end;
}

std::vector<Token> TopLevelTokens(std::string_view sql) {
  std::vector<Token> tokens;
  int depth = 0;
  for (std::size_t begin = 0; begin < sql.size();) {
    const std::size_t end = EndOfToken(sql, begin);
    const char first = sql[begin];
    if (first == ')') {
      --depth;
    } else if (first == '(') {
      ++depth;
    } else if (depth == 0 && std::isspace(static_cast<unsigned char>(first)) == 0) {
      const bool quoted = first == '\'' || first == '"' || first == '[';
      tokens.push_back({begin, end, quoted ? "" : forms::ToUpper(sql.substr(begin, end - begin))});
    }
    begin = end;
  }
  return tokens;
}

std::string WithoutBrackets(std::string_view name) {
  name = forms::Trim(name);
  const bool bracketed = name.size() >= 2 && (name.front() == '[' || name.front() == '"');
  return std::string(bracketed ? name.substr(1, name.size() - 2) : name);
}

using TokenRange = std::pair<std::vector<Token>::const_iterator, std::vector<Token>::const_iterator>;

// Without the blanks around it.
Sql Trimmed(const Sql& sql, std::size_t begin, std::size_t end) {
  const std::string_view text = sql.Text();
  const std::string_view part = forms::Trim(text.substr(begin, end - begin));
  return part.empty() ? Sql() : sql.Part(static_cast<std::size_t>(part.data() - text.data()), part.size());
}

ListStatement::Column ReadColumn(const Sql& statement, std::size_t begin, std::size_t end, TokenRange tokens) {
  const std::string_view sql = statement.Text();
  for (auto token = tokens.first; token != tokens.second; ++token) {
    if (token->word == "AS") {
      return {WithoutBrackets(sql.substr(token->end, end - token->end)), Trimmed(statement, begin, token->begin)};
    }
  }
  const std::string_view expression = forms::Trim(sql.substr(begin, end - begin));
  // A plain name, perhaps behind its table's, ends in a token; a call or a sum in parentheses does not.
  const auto expression_end = static_cast<std::size_t>(expression.data() - sql.data()) + expression.size();
  const bool named = tokens.first != tokens.second && std::prev(tokens.second)->end == expression_end;
  const std::size_t last = named ? std::prev(tokens.second)->begin : begin;
  return {WithoutBrackets(sql.substr(last, end - last)), Trimmed(statement, begin, end)};
}

}  // namespace

ListStatement::ListStatement(Sql sql)
    : sql_(std::move(sql)), where_end_(sql_.Text().size()), order_(sql_.Text().size()) {
  const std::vector<Token> tokens = TopLevelTokens(sql_.Text());
  auto token = tokens.begin();
  const auto is = [&](std::string_view word) { return token != tokens.end() && token->word == word; };
  if (!is("SELECT")) {
    return;
  }
  ++token;
  if (is("DISTINCT") || is("DISTINCTROW") || is("ALL")) {
    ++token;
  }
  if (is("TOP")) {
    token += std::min<std::ptrdiff_t>(2, tokens.end() - token);
  }
  while (token != tokens.end() && !is("FROM")) {
    const auto first = token;
    while (token != tokens.end() && !is(",") && !is("FROM")) {
      ++token;
    }
    const std::size_t begin = first == tokens.begin() ? 0 : std::prev(first)->end;
    const std::size_t end = token == tokens.end() ? sql_.Text().size() : token->begin;
    columns_.push_back(ReadColumn(sql_, begin, end, {first, token}));
    if (is(",")) {
      ++token;
    }
  }
  for (; token != tokens.end(); ++token) {
    if (token->word == "WHERE") {
      where_ = token->end;
    } else if (token->word == "GROUP" || token->word == "HAVING" || token->word == "ORDER" || token->word == ";") {
      where_end_ = std::min(where_end_, token->begin);
      if (token->word == "ORDER" || token->word == ";") {
        order_ = std::min(order_, token->begin);
      }
    }
  }
}

Sql ListStatement::Expression(std::string_view caption) const {
  const auto found = std::ranges::find_if(
      columns_, [&](const Column& column) { return forms::EqualsIgnoringCase(column.caption, caption); });
  return found == columns_.end() ? data::Bracketed(caption) : found->expression;
}

std::string ListStatement::CaptionOf(std::string_view name) const {
  const std::string caption = WithoutBrackets(name);
  const auto is_named = [&](const Column& column) {
    const std::string_view expression = column.expression.Text();
    return forms::EqualsIgnoringCase(column.caption, caption) ||
           forms::EqualsIgnoringCase(expression.substr(expression.rfind('.') + 1), caption);
  };
  const auto found = std::ranges::find_if(columns_, is_named);
  return found == columns_.end() ? std::string() : found->caption;
}

Sql ListStatement::With(const std::vector<Sql>& conditions, const Sql& sort) const {
  if (conditions.empty() && sort.Empty()) {
    return sql_;
  }
  Sql text;
  if (conditions.empty()) {
    text = sql_.Part(0, order_);
  } else {
    if (where_ == std::string::npos) {
      text = Trimmed(sql_, 0, where_end_) + " WHERE (";
    } else {
      text = sql_.Part(0, where_) + " (" + Trimmed(sql_, where_, where_end_) + ") AND (";
    }
    for (std::size_t i = 0; i < conditions.size(); ++i) {
      text += (i == 0 ? Sql() : Sql(" AND ")) + conditions[i];
    }
    text += Sql(")");
    if (where_end_ < order_) {
      text += Sql(" ") + sql_.Part(where_end_, order_ - where_end_);
    }
  }
  if (!sort.Empty()) {
    return text + " ORDER BY " + sort;
  }
  return order_ < sql_.Text().size() ? text + " " + sql_.Part(order_) : text;
}

SortTerm FirstSortTerm(std::string_view sort) {
  const std::vector<Token> tokens = TopLevelTokens(sort);
  const auto comma = std::ranges::find(tokens, ",", &Token::word);
  if (comma == tokens.begin()) {
    return {};
  }
  const Token& last = *std::prev(comma);
  const bool direction = last.word == "DESC" || last.word == "ASC";
  const std::size_t end = direction ? last.begin : last.end;
  return {WithoutBrackets(sort.substr(0, end)), last.word == "DESC"};
}

}  // namespace lookup
