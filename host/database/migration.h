#pragma once

#include "database/schema.h"
#include "session/connection.h"

namespace host {

// What a practice database is made with and keeps for good.
struct CreationOptions {
  int kind = 1;            // the database kind that the session reports
  int default_office = 1;  // the office of rows that are inserted without one
  bool row_guids = false;  // link and master tables carry `UniqueID`
};

// Makes the tables in an empty database, or brings those of an older version up to `version`, in one transaction, and
// returns what the database was made with (`options` when it is new). Throws session::DatabaseError when the database
// is newer than this program or is no practice database.
CreationOptions CreateOrMigrate(session::Connection& connection, const CreationOptions& options = {},
                                int version = kSchemaVersion);

}  // namespace host
