#include "database/database.h"

#include "database/file_path.h"
#include "database/prepare_sql.h"
#include "database/sqlite_connection.h"

namespace host {
namespace {

constexpr std::string_view kSqlite = "sqlite:";

std::string SqlitePath(const std::string& url) {
  if (url.starts_with(kSqlite) && url.size() > kSqlite.size()) {
    return url.substr(kSqlite.size());
  }
  const std::string engine = url.substr(0, url.find(':'));
  const bool known = engine == "postgresql" || engine == "odbc";
  throw session::DatabaseError(known ? "Databases of the engine \"" + engine + "\" are not built in yet."
                                     : "\"" + url + "\" is no database URL: sqlite:PATH is expected.",
                               {}, 0);
}

// The locks stand in a file of their own beside the practice's, so that none waits for a save, nor a save for it. In
// one that can only be read nobody holds anything against others.
PracticeDatabase Sqlite(const std::string& path, std::unique_ptr<SqliteConnection> connection,
                        const CreationOptions& options) {
  const bool alone = path == kMemory || connection->ReadOnly();
  auto locks = std::make_unique<SqliteConnection>(alone ? std::string(kMemory) : path + "-locks", OpenMode::Passing,
                                                  AccessOf(path));
  auto* opened = connection.get();
  return {std::move(connection),
          PrepareSqlite,
          options,
          [opened](const ChangeAuthor* author) { opened->WriteAs(author); },
          std::move(locks),
          !alone,
          AccessOf(path)};
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
  const std::string path = SqlitePath(url);
  const Access access = options.group ? Access::Group : AccessOf(path);
  return Sqlite(path, std::make_unique<SqliteConnection>(path, OpenMode::OrNew, access), options);
}

PracticeDatabase CreateDatabase(const std::string& url, const CreationOptions& options) {
  PracticeDatabase database = OpenNewDatabase(url, options);
  session::Transaction transaction(*database.connection);
  CreateSchema(*database.connection, options);
  transaction.Commit();
  return database;
}

PracticeDatabase OpenDatabase(const std::string& url) {
  const std::string path = SqlitePath(url);
  auto connection = std::make_unique<SqliteConnection>(path, OpenMode::Existing, AccessOf(path));
  try {
    const CreationOptions options = MigrateSchema(*connection);
    return Sqlite(path, std::move(connection), options);
  } catch (const session::DatabaseError& error) {
    throw CannotBeOpened(path, error.what(), error.Code());
  }
}

bool IsVacant(const std::string& url) {
  const std::string path = SqlitePath(url);
  if (!std::filesystem::exists(FilePath(path))) {
    return true;
  }
  SqliteConnection connection(path, OpenMode::Existing, AccessOf(path));
  return IsEmpty(connection);
}

}  // namespace host
