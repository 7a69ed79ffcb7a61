#pragma once

#include "database/dialect/sql_tokens.h"

namespace host::sql {

struct Range {
  std::size_t begin = 0;
  std::size_t end = 0;
};

// A select and its clauses, by their first token; what it does not have stands at its end.
struct Query {
  std::size_t select = 0;
  bool distinct = false;
  bool groups = false;
  Range list;             // what it selects
  std::size_t from = 0;   // the word
  std::size_t order = 0;  // the word
  std::size_t limit = 0;  // the word
  std::size_t end = 0;
};

// All of a statement, those within one another too. Of a union each part is one; the order stands with the last.
std::vector<Query> QueriesOf(const Tokens& statement);

// What commas part between the two places; empty when there is nothing.
std::vector<Range> Parts(const Tokens& tokens, Groups& groups, Range range);

}  // namespace host::sql
