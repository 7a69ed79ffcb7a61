#include "database/engine.h"
#include "database/postgres/postgres_engine.h"
#include "database/sqlite/sqlite_engine.h"

namespace host {

const Engine* FindEngine(std::string_view name) {
  static const SqliteEngine sqlite;
  static const PostgresEngine postgres;
  if (name == "sqlite") {
    return &sqlite;
  }
  return name == "postgresql" ? &postgres : nullptr;
}

}  // namespace host
