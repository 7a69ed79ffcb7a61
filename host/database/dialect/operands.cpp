#include "database/dialect/operands.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "forms/text.h"

namespace host::sql {
namespace {

// Groups within one another, or calls of what returns one of its arguments.
constexpr int kDeepest = 16;

enum class Yields { Text, Int, Real, Moment, Argument };

std::optional<Yields> ResultOf(const Token& function) {
  static const std::unordered_map<std::string_view, Yields> results = {
      {"UPPER", Yields::Text},        {"LOWER", Yields::Text},      {"TRIM", Yields::Text},
      {"LTRIM", Yields::Text},        {"RTRIM", Yields::Text},      {"SUBSTRING", Yields::Text},
      {"SUBSTR", Yields::Text},       {"LEFT", Yields::Text},       {"RIGHT", Yields::Text},
      {"REPLACE", Yields::Text},      {"CHAR", Yields::Text},       {"CONCAT", Yields::Text},
      {"GROUP_CONCAT", Yields::Text}, {"COUNT", Yields::Int},       {"LEN", Yields::Int},
      {"LENGTH", Yields::Int},        {"IDENTITY", Yields::Int},    {"PRACTICE_IDENTITY", Yields::Int},
      {"AVG", Yields::Real},          {"GETDATE", Yields::Moment},  {"NOW", Yields::Moment},
      {"COALESCE", Yields::Argument}, {"ISNULL", Yields::Argument}, {"IFNULL", Yields::Argument},
      {"MIN", Yields::Argument},      {"MAX", Yields::Argument},    {"SUM", Yields::Argument},
      {"ABS", Yields::Argument},      {"ROUND", Yields::Argument},
  };
  const auto found = results.find(forms::ToUpper(function.text));
  return found == results.end() ? std::nullopt : std::optional(found->second);
}

bool IsCall(const Tokens& tokens, std::size_t open) {
  return open > 0 && tokens[open - 1].kind == Kind::Word &&
         (!tokens[open - 1].IsKeyword() || tokens[open - 1].Is("LEFT") || tokens[open - 1].Is("RIGHT"));
}

std::optional<ColumnType> OfToken(const Token& token) {
  switch (token.kind) {
    case Kind::Text:
      return ColumnType::Memo;
    case Kind::Moment:
      return ColumnType::DateTime;
    case Kind::Name:
    case Kind::Word:
      if (token.IsNumber()) {
        return token.text.find('.') == std::string::npos ? ColumnType::Int : ColumnType::Real;
      }
      return TypeOfColumn(token.text);
    default:
      return std::nullopt;
  }
}

}  // namespace

std::size_t Operands::Begin(std::size_t last) {
  std::size_t begin = last;
  if (tokens_[last].Is(')')) {
    begin = groups_.Open(last);
    begin -= IsCall(tokens_, begin) ? 1U : 0U;
  }
  while (begin >= 2 && tokens_[begin].IsName() && tokens_[begin - 1].Is('.') && tokens_[begin - 2].IsName()) {
    begin -= 2;
  }
  return begin;
}

std::size_t Operands::End(std::size_t first) {
  std::size_t end = first;
  while (end + 2 < tokens_.size() && tokens_[end].IsName() && tokens_[end + 1].Is('.')) {
    end += 2;
  }
  if (end < tokens_.size() && tokens_[end].Is('(')) {
    return groups_.After(end);
  }
  if (end + 1 < tokens_.size() && tokens_[end + 1].Is('(') && IsCall(tokens_, end + 1)) {
    return groups_.After(end + 1);
  }
  return std::min(end + 1, tokens_.size());
}

std::optional<ColumnType> Operands::Ending(std::size_t last) {
  for (int depth = 0; last > 0 && tokens_[last].Is(')') && depth < kDeepest; ++depth) {
    const std::size_t open = groups_.Open(last);
    if (IsCall(tokens_, open)) {
      return OfCall(open);
    }
    if (open + 1 < tokens_.size() && tokens_[open + 1].Is("SELECT")) {
      return Beginning(open + 2);
    }
    --last;
  }
  return OfToken(tokens_[last]);
}

std::optional<ColumnType> Operands::Beginning(std::size_t first) {
  for (int depth = 0; first < tokens_.size() && depth < kDeepest; ++depth) {
    if (first + 2 < tokens_.size() && tokens_[first].IsName() && tokens_[first + 1].Is('.')) {
      first += 2;
    } else if (tokens_[first].Is('(') || tokens_[first].Is("SELECT") || tokens_[first].Is('-')) {
      ++first;
    } else {
      break;
    }
  }
  if (first >= tokens_.size()) {
    return std::nullopt;
  }
  return first + 1 < tokens_.size() && tokens_[first + 1].Is('(') && IsCall(tokens_, first + 1)
             ? OfCall(first + 1)
             : OfToken(tokens_[first]);
}

std::optional<ColumnType> Operands::OfCall(std::size_t open) {
  for (int depth = 0; depth < kDeepest; ++depth) {
    if (tokens_[open - 1].Is("CAST")) {
      return OfCast(open);
    }
    const auto yields = ResultOf(tokens_[open - 1]);
    if (!yields) {
      return std::nullopt;
    }
    switch (*yields) {
      case Yields::Text:
        return ColumnType::Memo;
      case Yields::Int:
        return ColumnType::Int;
      case Yields::Real:
        return ColumnType::Real;
      case Yields::Moment:
        return ColumnType::DateTime;
      case Yields::Argument:
        break;
    }
    std::size_t argument = open + 1;
    while (argument + 2 < tokens_.size() && tokens_[argument].IsName() && tokens_[argument + 1].Is('.')) {
      argument += 2;
    }
    if (argument + 1 >= tokens_.size() || !tokens_[argument + 1].Is('(') || !IsCall(tokens_, argument + 1)) {
      return argument < tokens_.size() ? OfToken(tokens_[argument]) : std::nullopt;
    }
    open = argument + 1;
  }
  return std::nullopt;
}

// The type stands last, with or without its size.
std::optional<ColumnType> Operands::OfCast(std::size_t open) {
  std::size_t type = groups_.End(open + 1) - 1;
  if (tokens_[type].Is(')')) {
    type = groups_.Open(type) - 1;
  }
  return type > open + 1 && tokens_[type - 1].Is("AS") ? TypeNamed(tokens_[type]) : std::nullopt;
}

std::optional<ColumnType> TypeNamed(const Token& word) {
  static const std::unordered_map<std::string_view, ColumnType> types = {
      {"NVARCHAR", ColumnType::Text},     {"VARCHAR", ColumnType::Text},
      {"NCHAR", ColumnType::Text},        {"CHAR", ColumnType::Text},
      {"NTEXT", ColumnType::Memo},        {"TEXT", ColumnType::Memo},
      {"CITEXT", ColumnType::Memo},       {"INT", ColumnType::Int},
      {"INTEGER", ColumnType::Int},       {"SMALLINT", ColumnType::SmallInt},
      {"BIT", ColumnType::SmallInt},      {"MONEY", ColumnType::Money},
      {"FLOAT", ColumnType::Real},        {"REAL", ColumnType::Real},
      {"DATETIME", ColumnType::DateTime}, {"UNIQUEIDENTIFIER", ColumnType::Guid},
      {"UUID", ColumnType::Guid},         {"TIMESTAMP", ColumnType::DateTime},
      {"NUMERIC", ColumnType::Money},     {"FLOAT8", ColumnType::Real},
  };
  const auto found = word.kind == Kind::Word ? types.find(forms::ToUpper(word.text)) : types.end();
  return found == types.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace host::sql
