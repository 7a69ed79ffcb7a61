#pragma once

#include "database/dialect/sql_tokens.h"

namespace host::sql {

// A select that looks for some letters in a column without an index for them, or for ranges of keys, sorts the few rows
// that it finds: "ORDER BY +pLASNAM". Where that column has an index SQLite would go by it and look each row up on its
// own, which takes ten times as long where there is next to nothing to find. One or two letters are in so many rows
// that the first of them are found soon.
void SortWhatIsFound(Tokens& statement);

}  // namespace host::sql
