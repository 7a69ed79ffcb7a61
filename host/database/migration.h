#pragma once

#include "database/schema.h"
#include "session/connection.h"

namespace host {

// What a practice database is made with and keeps for good.
struct CreationOptions {
  int kind = 1;            // the database kind that the session reports
  int office = 1;          // the office of rows that are inserted without one
  int offices = 1;         // offices 1 to this are set up
  bool row_guids = false;  // link and master tables carry `UniqueID`
  bool group = false;      // the group of its files may work in it too; the files' mode keeps it
};

// Whether a practice can be made in the database: it has no table, as its making leaves it when it is broken off.
bool IsEmpty(session::Connection& connection);

// Makes the tables in an empty database; the caller's transaction sees to it that it is all or none. Throws
// session::DatabaseError, also when there is something in the database already. `version` is for tests of what an
// older program has made.
void CreateSchema(session::Connection& connection, const CreationOptions& options, int version = kSchemaVersion);

// Brings the tables of an older version up to date, in one transaction, and returns what the database was made with.
// Throws session::DatabaseError, also when the database is newer than this program or holds no practice.
CreationOptions MigrateSchema(session::Connection& connection);

}  // namespace host
