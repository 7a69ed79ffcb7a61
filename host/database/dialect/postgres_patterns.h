#pragma once

#include "database/dialect/sql_tokens.h"

namespace host::sql {

// "Like" of a text, a number or a date. Classes of several characters become a regular expression. Beside a pattern
// that begins with letters stands the range of what begins so, by which the column's index finds it.
void MatchPatterns(Tokens& statement);

}  // namespace host::sql
