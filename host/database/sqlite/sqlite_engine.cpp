#include "database/sqlite/sqlite_engine.h"

#include <filesystem>

#include "database/dialect/prepare_sql.h"
#include "database/file_path.h"
#include "database/migration.h"
#include "database/sqlite/sqlite_connection.h"
#include "database/sqlite/sqlite_schema.h"

namespace host {
namespace {

const SqliteSchema kSchema;

std::string PathOf(const std::string& url) {
  return url.substr(url.find(':') + 1);
}

// The locks stand in a file of their own beside the practice's, so that none waits for a save, nor a save for it. In
// one that can only be read nobody holds anything against others.
PracticeDatabase Opened(const std::string& path, std::unique_ptr<SqliteConnection> connection,
                        const CreationOptions& options) {
  const bool alone = path == kMemory || connection->ReadOnly();
  auto locks = std::make_unique<SqliteConnection>(alone ? std::string(kMemory) : path + "-locks", OpenMode::Passing,
                                                  AccessOf(path));
  auto* opened = connection.get();
  return {.connection = std::move(connection),
          .prepare = PrepareSqlite,
          .schema = &kSchema,
          .options = options,
          .write_as = [opened](const ChangeAuthor* author) { opened->WriteAs(author); },
          .locks = std::move(locks),
          .shared = !alone,
          .access = AccessOf(path)};
}

}  // namespace

PracticeDatabase SqliteEngine::OpenNew(const std::string& url, const CreationOptions& options) const {
  const std::string path = PathOf(url);
  const Access access = options.group ? Access::Group : AccessOf(path);
  return Opened(path, std::make_unique<SqliteConnection>(path, OpenMode::OrNew, access), options);
}

PracticeDatabase SqliteEngine::Open(const std::string& url) const {
  const std::string path = PathOf(url);
  auto connection = std::make_unique<SqliteConnection>(path, OpenMode::Existing, AccessOf(path));
  try {
    const CreationOptions options = MigrateSchema(*connection, kSchema);
    return Opened(path, std::move(connection), options);
  } catch (const session::DatabaseError& error) {
    throw CannotBeOpened(path, error.what(), error.Code());
  }
}

bool SqliteEngine::IsVacant(const std::string& url) const {
  const std::string path = PathOf(url);
  if (!std::filesystem::exists(FilePath(path))) {
    return true;
  }
  SqliteConnection connection(path, OpenMode::Existing, AccessOf(path));
  return IsEmpty(connection, kSchema);
}

}  // namespace host
