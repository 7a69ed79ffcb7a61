#include "database/database.h"

#include "database/engine.h"
#include "database/migration.h"
#include "database/shown_url.h"

namespace host {
namespace {

constexpr const char* kNoGroups = "Groups of practices stand on PostgreSQL servers alone.";

const Engine& EngineOf(const std::string& url) {
  const std::string begin = url.substr(0, url.find(':') + 1);
  const auto engines = Engines();
  std::string shapes;
  for (const Engine* engine : engines) {
    if (!begin.empty() && engine->Shape().starts_with(begin) && url != begin) {
      return *engine;
    }
    shapes += (shapes.empty() ? "" : engine == engines.back() ? " or " : ", ") + std::string(engine->Shape());
  }
  throw session::DatabaseError(
      "\"" + ShownUrl(url) + "\" is no database URL that this program knows: " + shapes + " is expected.", {}, 0);
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

std::string PlaceOf(const std::string& url) {
  return EngineOf(url).PlaceOf(url);
}

void CreateOfficeGroup(const GroupServer& first, const CreationOptions& options) {
  EngineOf(first.url).CreateOfficeGroup(first, options);
}

std::unique_ptr<OfficeGroup> OpenOfficeGroup(const std::string& url) {
  return EngineOf(url).OpenOfficeGroup(url);
}

void Engine::CreateOfficeGroup(const GroupServer& /*first*/, const CreationOptions& /*options*/) const {
  throw session::DatabaseError(kNoGroups, {}, 0);
}

std::unique_ptr<OfficeGroup> Engine::OpenOfficeGroup(const std::string& /*url*/) const {
  throw session::DatabaseError(kNoGroups, {}, 0);
}

}  // namespace host
