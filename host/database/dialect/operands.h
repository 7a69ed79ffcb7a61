#pragma once

#include <optional>

#include "database/dialect/sql_tokens.h"
#include "database/schema.h"

namespace host::sql {

// The operands of a statement, a single one on either side of an operator: a literal, a column, a call, a group in
// parentheses. The statement outlives it, with its tokens where they are.
class Operands {
 public:
  explicit Operands(const Tokens& tokens) : tokens_(tokens), groups_(tokens) {}

  // Where the one begins whose last token is at `last`, and behind the one whose first is at `first`.
  std::size_t Begin(std::size_t last);
  std::size_t End(std::size_t first);

  // What its value is, by the schema's columns; nothing when that is not known.
  std::optional<ColumnType> Ending(std::size_t last);
  std::optional<ColumnType> Beginning(std::size_t first);

  Groups& Brackets() { return groups_; }

 private:
  std::optional<ColumnType> OfCall(std::size_t open);
  std::optional<ColumnType> OfCast(std::size_t open);

  const Tokens& tokens_;
  Groups groups_;
};

inline bool IsText(std::optional<ColumnType> type) {
  return type == ColumnType::Text || type == ColumnType::Memo;
}
inline bool IsNumber(std::optional<ColumnType> type) {
  return type == ColumnType::Int || type == ColumnType::SmallInt || type == ColumnType::Money ||
         type == ColumnType::Real;
}

// Of a column that a statement declares, or of a cast: "nvarchar", "datetime".
std::optional<ColumnType> TypeNamed(const Token& word);

}  // namespace host::sql
