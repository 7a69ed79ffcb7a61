#pragma once

#include "database/dialect/sql_tokens.h"
#include "database/schema.h"

// PostgreSQL compares, writes and joins values of one type only. Types are those of the schema's columns.
namespace host::sql {

// "+" beside a text joins texts; what else is joined is made one. A number beside a date is one of days.
void FitSums(Tokens& statement);

// Beside a column a literal becomes one of its type: a number beside a text column is text, a text beside a date is a
// date. '' and what else is no date or no number is null there; what is unlike it is not null.
void FitComparisons(Tokens& statement);

// The same in the values of an insert, for dates and for ''.
void FitValues(Tokens& statement);

// The operand that stands there becomes text as the screens show it.
void WrapAsText(Edits& edits, std::size_t from, std::size_t to, ColumnType type);

}  // namespace host::sql
