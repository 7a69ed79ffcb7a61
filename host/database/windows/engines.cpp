#include "database/engine.h"
#include "database/odbc/odbc_engine.h"
#include "database/sqlite/sqlite_engine.h"

namespace host {

const Engine* FindEngine(std::string_view name) {
  static const SqliteEngine sqlite;
  static const OdbcEngine odbc;
  if (name == "sqlite") {
    return &sqlite;
  }
  return name == "odbc" ? &odbc : nullptr;
}

}  // namespace host
