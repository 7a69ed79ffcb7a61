#include "database/sqlite_connection.h"

#include "database/file_path.h"
#include "database/sqlite_change_log.h"
#include "database/sqlite_handle.h"
#include "database/sqlite_recordset.h"
#include "forms/text.h"

namespace host {
namespace {

// What the engine makes beside the file has the file's mode.
int OpenFlags(const std::string& path, OpenMode mode, Access access) {
  if (path != kMemory && (mode != OpenMode::Existing || std::filesystem::exists(FilePath(path)))) {
    MakePrivate(path, access);
  }
  return SQLITE_OPEN_READWRITE | (mode == OpenMode::Existing ? 0 : SQLITE_OPEN_CREATE);
}

bool IsSelect(std::string_view statement) {
  return forms::EqualsIgnoringCase(forms::Trim(statement).substr(0, 6), "SELECT");
}

}  // namespace

class SqliteFile {
 public:
  SqliteFile(const std::string& path, OpenMode mode, Access access, const std::function<void()>& while_busy)
      : in_memory(path == kMemory),
        main(path, OpenFlags(path, mode, access), identity, while_busy),
        readers(path, identity, while_busy) {
    try {
      if (mode == OpenMode::Passing && !main.IsSound()) {
        main.Empty();
      }
      main.Run("PRAGMA journal_mode=WAL");
      if (mode == OpenMode::Passing) {
        main.Run("PRAGMA synchronous=OFF");
      }
    } catch (const session::DatabaseError& error) {
      throw CannotBeOpened(path, error.what(), error.Code());
    }
  }

  Identity identity;
  const ChangeAuthor* author = nullptr;
  bool logs_changes = false;
  bool in_memory;
  SqliteHandle main;
  SqliteReaders readers;
};

SqliteConnection::SqliteConnection(const std::string& path, OpenMode mode, Access access)
    : file_(std::make_unique<SqliteFile>(path, mode, access, WhileBusy)) {}

SqliteConnection::~SqliteConnection() = default;

std::unique_ptr<session::Recordset> SqliteConnection::Execute(const std::string& sql) {
  std::unique_ptr<SqliteRecordset> rows;
  for (std::string_view rest = sql; !rest.empty();) {
    SqliteReaders::Lease lease;
    if (!file_->in_memory && !file_->main.InTransaction() && IsSelect(rest)) {
      lease = file_->readers.Borrow();
    }
    SqliteHandle& handle = lease != nullptr ? *lease : file_->main;
    SqliteStatement statement = handle.Prepare(rest, sql);
    if (statement == nullptr) {
      continue;
    }
    if (sqlite3_column_count(statement.get()) > 0) {
      rows = std::make_unique<SqliteRecordset>(handle, std::move(lease), std::move(statement), sql);
    } else {
      handle.Step(statement.get(), sql);
    }
  }
  if (rows == nullptr) {
    return std::make_unique<EmptyRecordset>();
  }
  return rows;
}

void SqliteConnection::BeginTrans() {
  // Takes the right to write at once: another process is waited for here, not in the middle.
  file_->main.Run("BEGIN IMMEDIATE");
}

void SqliteConnection::CommitTrans() {
  file_->main.Run("COMMIT");
}

void SqliteConnection::RollbackTrans() {
  file_->main.Run("ROLLBACK");
}

void SqliteConnection::WriteAs(const ChangeAuthor* author) {
  if (author != nullptr && !file_->logs_changes) {
    LogChanges(file_->main, file_->author);
    file_->logs_changes = true;
  }
  file_->author = author;
}

void SqliteConnection::Cancel() {
  file_->main.Interrupt();
  file_->readers.Interrupt();
}

}  // namespace host
