#pragma once

#include "database/dialect/sql_tokens.h"

namespace host::sql {

// PostgreSQL folds what stands without quotes to small letters. So do the names of tables and columns; a caption given
// with AS keeps its writing, there and wherever else the statement names it.
void QuoteCaptions(Tokens& statement);

// The name in quotes, as PostgreSQL has it: "Last Name".
std::string InQuotes(std::string_view name);

}  // namespace host::sql
