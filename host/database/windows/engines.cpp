#include "database/engine.h"
#include "database/sqlite/sqlite_engine.h"

namespace host {

const Engine* FindEngine(std::string_view name) {
  static const SqliteEngine sqlite;
  return name == "sqlite" ? &sqlite : nullptr;
}

}  // namespace host
