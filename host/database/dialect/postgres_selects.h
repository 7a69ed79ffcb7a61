#pragma once

#include "database/dialect/sql_tokens.h"

// The clauses of a select that PostgreSQL writes otherwise. Each works on all selects of a statement.
namespace host::sql {

// A condition among what is selected is 1 or 0; a text there compares without regard to case, unless an insert gives
// it a column's type.
void FitLists(Tokens& statement);
// "SELECT DISTINCT a FROM T ORDER BY b" groups by what it selects and sorts by the least b.
void SortDistinct(Tokens& statement);
// Null comes before every value.
void SortNullFirst(Tokens& statement);
// A select that stands in place of a table has a name.
void NameDerived(Tokens& statement);
// "outer apply (select ...) a" and "cross apply".
void JoinLaterally(Tokens& statement);

}  // namespace host::sql
