#pragma once

#include "database/change_author.h"
#include "database/sqlite/sqlite_handle.h"

namespace host {

// Has what is written to the logged tables put down in `kChangeLog` by the statement itself, while there is an author:
// `current`, which outlives the handle, points to none otherwise. The tables must be there. Throws
// session::DatabaseError.
void LogChanges(SqliteHandle& handle, const ChangeAuthor* const& current);

}  // namespace host
