#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/sql.h"

namespace lookup {

// A list's statement, one SELECT without UNION, read just far enough to filter and sort its rows.
class ListStatement {
 public:
  struct Column {
    std::string caption;   // the alias without its brackets; without an alias the column's own name
    data::Sql expression;  // as written
  };

  ListStatement() = default;
  explicit ListStatement(data::Sql sql);

  const std::vector<Column>& Columns() const { return columns_; }
  // What stands under the caption (case does not matter); the caption in brackets when nothing does.
  data::Sql Expression(std::string_view caption) const;

  // The caption of a column that a host names by its caption or by its name in the table ("pLASNAM"); empty for none.
  std::string CaptionOf(std::string_view name) const;

  // The statement with these conditions added to its own and sorted by `sort`, the text after "ORDER BY". Without
  // conditions it is the statement to the letter; an empty sort leaves the statement's own.
  data::Sql With(const std::vector<data::Sql>& conditions, const data::Sql& sort) const;

 private:
  data::Sql sql_;
  std::vector<Column> columns_;
  std::size_t where_ = std::string::npos;  // behind the word WHERE
  std::size_t where_end_ = 0;              // where conditions end, or would be put
  std::size_t order_ = 0;                  // where ORDER BY stands, or would be put
};

// The first term of a sort text: "[Insurance Company] DESC, Name" is "Insurance Company", descending.
struct SortTerm {
  std::string caption;
  bool descending = false;
};
SortTerm FirstSortTerm(std::string_view sort);

}  // namespace lookup
