#include "database/database.h"

#include <array>

#include "database/engine.h"
#include "database/migration.h"
#include "database/sqlite/sqlite_engine.h"

namespace host {
namespace {

const Engine& EngineOf(const std::string& url) {
  static const SqliteEngine sqlite;
  struct Known {
    std::string_view name;
    const Engine* engine;
  };
  static const std::array engines = {Known{"sqlite", &sqlite}, Known{"postgresql", nullptr}, Known{"odbc", nullptr}};
  const std::size_t colon = url.find(':');
  for (const auto& [name, engine] : engines) {
    if (colon == std::string::npos || url.substr(0, colon) != name) {
      continue;
    }
    if (engine == nullptr) {
      throw session::DatabaseError("Databases of the engine \"" + std::string(name) + "\" are not built in yet.", {},
                                   0);
    }
    if (colon + 1 < url.size()) {
      return *engine;
    }
  }
  throw session::DatabaseError(
      "\"" + url + "\" is no database URL: sqlite:PATH, postgresql://... or odbc:... is expected.", {}, 0);
}

}  // namespace

bool PracticeDatabase::KeepsRowGuids(std::string_view table) const {
  if (!options.row_guids) {
    return false;
  }
  const Table* found = FindTable(table);
  return found != nullptr && found->row_guid;
}

PracticeDatabase OpenNewDatabase(const std::string& url, const CreationOptions& options) {
  return EngineOf(url).OpenNew(url, options);
}

PracticeDatabase CreateDatabase(const std::string& url, const CreationOptions& options) {
  PracticeDatabase database = OpenNewDatabase(url, options);
  session::Transaction transaction(*database.connection);
  CreateSchema(*database.connection, *database.schema, options);
  transaction.Commit();
  return database;
}

PracticeDatabase OpenDatabase(const std::string& url) {
  return EngineOf(url).Open(url);
}

bool IsVacant(const std::string& url) {
  return EngineOf(url).IsVacant(url);
}

}  // namespace host
