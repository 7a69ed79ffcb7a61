#include "database/engine.h"
#include "database/odbc/odbc_engine.h"
#include "database/postgres/postgres_engine.h"
#include "database/sqlite/sqlite_engine.h"

namespace host {

std::vector<const Engine*> Engines() {
  static const SqliteEngine sqlite;
  static const PostgresEngine postgres;
  static const OdbcEngine odbc;
  return {&sqlite, &postgres, &odbc};
}

}  // namespace host
