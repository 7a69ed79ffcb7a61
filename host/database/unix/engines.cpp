#include "database/engine.h"
#include "database/odbc/odbc_engine.h"
#include "database/postgres/postgres_engine.h"
#include "database/sqlite/sqlite_engine.h"

namespace host {

const Engine* FindEngine(std::string_view name) {
  static const SqliteEngine sqlite;
  static const PostgresEngine postgres;
  static const OdbcEngine odbc;
  if (name == "sqlite") {
    return &sqlite;
  }
  if (name == "odbc") {
    return &odbc;
  }
  return name == "postgresql" ? &postgres : nullptr;
}

}  // namespace host
