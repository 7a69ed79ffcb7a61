#pragma once

#include "database/sql_tokens.h"

namespace host::sql {

// A select that looks for some letters in a column without an index for them, and is sorted by one with an index, reads
// the rows in the order of the table and sorts the few that it finds: "ORDER BY +pLASNAM". By the index SQLite would
// look each row up on its own, which takes ten times as long where there is next to nothing to find. One or two letters
// are in so many rows that the first of them are found soon.
void SortWhatIsFound(Tokens& statement);

}  // namespace host::sql
