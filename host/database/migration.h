#pragma once

#include <string_view>

#include "database/schema_writer.h"
#include "session/connection.h"

namespace host {

// What a practice of any version was made with. Throws session::DatabaseError.
CreationOptions ReadOptions(session::Connection& connection);

// Stands in a database that a practice is being copied into, beside tables that are none yet.
inline constexpr std::string_view kCopyNotes = "CopyTable";

// Whether a practice can be made in the database: it has no table, as its making leaves it when it is broken off.
bool IsEmpty(session::Connection& connection, const SchemaWriter& writer);

// Makes the tables in an empty database; the caller's transaction sees to it that it is all or none. Throws
// session::DatabaseError, also when there is something in the database already. `version` is for tests of what an
// older program has made.
void CreateSchema(session::Connection& connection, const SchemaWriter& writer, const CreationOptions& options,
                  int version = kSchemaVersion);

// Whether this login may write in the practice.
bool MayWrite(session::Connection& connection, const SchemaWriter& writer);

// Brings the tables of an older version up to date, in one transaction, and returns what the database was made with;
// its office is another one where this login may not enter that.
// Throws session::DatabaseError, also when the database is newer than this program or holds no practice.
CreationOptions MigrateSchema(session::Connection& connection, const SchemaWriter& writer);

}  // namespace host
