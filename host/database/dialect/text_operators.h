#pragma once

#include "database/dialect/sql_tokens.h"

// The dialect's operators on text as SQLite has them.
namespace host::sql {

// "+" beside a text, or a column that the schema knows as text, joins texts; between numbers it adds. Null with text
// is null.
void JoinTexts(Tokens& statement);

// "Like" with classes for single characters ("[%]") becomes one with an escape character, one with other classes or
// with letters beyond ASCII goes to match(). A plain pattern stays, and with it the use of an index.
void TranslatePatterns(Tokens& statement);

// A condition that compares with letters beyond ASCII takes the collation that knows their cases, and one that compares
// what a function yields a collation without regard to case. Others stay with the columns' own, and with their indexes.
void FoldComparisons(Tokens& statement);

}  // namespace host::sql
