#include "database/sqlite/sqlite_connection.h"

#include <filesystem>

#include "database/file_path.h"
#include "database/sqlite/sqlite_change_log.h"
#include "database/sqlite/sqlite_handle.h"
#include "database/sqlite/sqlite_recordset.h"
#include "forms/text.h"

namespace host {
namespace {

bool Exists(const std::filesystem::path& path) {
  std::error_code ignored;
  return std::filesystem::exists(path, ignored);
}

// A file without the right to write for anybody is left alone, whoever we are.
bool IsProtected(const std::string& path) {
  using std::filesystem::perms;
  std::error_code error;
  const auto status = std::filesystem::status(FilePath(path), error);
  return !error && is_regular_file(status) &&
         (status.permissions() & (perms::owner_write | perms::group_write | perms::others_write)) == perms::none;
}

// What the engine makes beside the file has the file's mode.
SqliteSource SourceOf(const std::string& path, OpenMode mode, Access access) {
  if (IsProtected(path)) {
    return {path, SQLITE_OPEN_READONLY};
  }
  if (path != kMemory && (mode != OpenMode::Existing || Exists(FilePath(path)))) {
    MakePrivate(path, access);
  }
  return {path, SQLITE_OPEN_READWRITE | (mode == OpenMode::Existing ? 0 : SQLITE_OPEN_CREATE)};
}

// Of a database that nobody writes to: it is read without the files that SQLite makes beside it.
SqliteSource StandingStill(const std::string& path) {
  const std::filesystem::path file = std::filesystem::absolute(FilePath(path));
  const std::u8string text = file.generic_u8string();
  std::string uri = text.starts_with(u8'/') ? "file://" : "file:///";
  for (const char8_t c : text) {
    const bool reserved = c == u8'%' || c == u8'?' || c == u8'#';
    uri += !reserved ? std::string(1, static_cast<char>(c)) : c == u8'%' ? "%25" : c == u8'?' ? "%3f" : "%23";
  }
  return {uri + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI};
}

// What a person finds in the place of a file that SQLite could not open.
std::string WhyNot(const std::string& path, OpenMode mode) {
  const std::filesystem::path file = FilePath(path);
  std::error_code ignored;
  if (std::filesystem::is_directory(file, ignored)) {
    return "It is a folder.";
  }
  if (!file.parent_path().empty() && !Exists(file.parent_path())) {
    return "There is no such folder.";
  }
  if (Exists(file)) {
    return "The file, or one beside it, cannot be read.";
  }
  return mode == OpenMode::Existing ? "There is no such file." : "It cannot be made there.";
}

bool IsSelect(std::string_view statement) {
  return forms::EqualsIgnoringCase(forms::Trim(statement).substr(0, 6), "SELECT");
}

}  // namespace

class SqliteFile {
 public:
  SqliteFile(const std::string& path, OpenMode mode, Access access, const session::WhileBusy& while_busy)
      : in_memory(path == kMemory), source(SourceOf(path, mode, access)), readers(source, identity, while_busy) {
    try {
      Open(mode, while_busy);
    } catch (const session::DatabaseError& error) {
      const int code = error.Code() & kPrimary;
      if ((code != SQLITE_CANTOPEN && code != SQLITE_READONLY) || mode == OpenMode::Passing ||
          !Exists(FilePath(path))) {
        throw CannotBeOpened(path, code == SQLITE_CANTOPEN ? WhyNot(path, mode) : error.what(), error.Code());
      }
      OpenStandingStill(path, while_busy, error);
    }
  }

  Identity identity;
  const ChangeAuthor* author = nullptr;
  bool logs_changes = false;
  bool in_memory;
  SqliteSource source;
  std::unique_ptr<SqliteHandle> main;
  SqliteReaders readers;

  // Whoever only looks does not wait for it.
  void LogBeforeWriting() {
    if (author != nullptr && !logs_changes) {
      LogChanges(*main, author);
      logs_changes = true;
    }
  }

 private:
  static constexpr int kPrimary = 0xFF;

  // Tells as well whether the file can be read.
  void Open(OpenMode mode, const session::WhileBusy& while_busy) {
    main = std::make_unique<SqliteHandle>(source, identity, while_busy);
    if (mode == OpenMode::Passing && !main->IsSound()) {
      main->Empty();
    }
    main->Run(main->ReadOnly() ? "SELECT Count(*) FROM sqlite_schema" : "PRAGMA journal_mode=WAL");
    if (mode == OpenMode::Passing) {
      if (main->ReadOnly()) {
        throw session::DatabaseError("It is protected against writing.", {}, SQLITE_READONLY);
      }
      main->Run("PRAGMA synchronous=OFF");
    }
  }

  // In a folder where no file can be made beside it; what another program has not yet written back keeps it shut.
  void OpenStandingStill(const std::string& path, const session::WhileBusy& while_busy,
                         const session::DatabaseError& refused) {
    std::error_code ignored;
    const auto log = std::filesystem::file_size(FilePath(path + "-wal"), ignored);
    source = StandingStill(path);
    try {
      if (ignored || log == 0) {
        Open(OpenMode::Existing, while_busy);
        return;
      }
    } catch (const session::DatabaseError&) {  // NOLINT(bugprone-empty-catch): the first refusal speaks
    }
    throw CannotBeOpened(path, WhyNot(path, OpenMode::Existing), refused.Code());
  }
};

session::DatabaseError CannotBeOpened(const std::string& path, const std::string& why, int code) {
  return {"The database \"" + path + "\" cannot be opened: " + why, {}, code};
}

SqliteConnection::SqliteConnection(const std::string& path, OpenMode mode, Access access)
    : file_(std::make_unique<SqliteFile>(path, mode, access, WhileBusy)) {}

SqliteConnection::~SqliteConnection() = default;

bool SqliteConnection::ReadOnly() const {
  return file_->main->ReadOnly();
}

std::unique_ptr<session::Recordset> SqliteConnection::Execute(const std::string& sql) {
  // SQLite would read no further.
  if (sql.find('\0') != std::string::npos) {
    throw session::DatabaseError("The statement holds a zero character.", sql, SQLITE_MISUSE);
  }
  std::unique_ptr<SqliteRecordset> rows;
  for (std::string_view rest = sql; !rest.empty();) {
    SqliteReaders::Lease lease;
    if (!IsSelect(rest)) {
      file_->LogBeforeWriting();
    } else if (!file_->in_memory && !file_->main->InTransaction()) {
      lease = file_->readers.Borrow();
    }
    SqliteHandle& handle = lease != nullptr ? *lease : *file_->main;
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
  file_->main->Run("BEGIN IMMEDIATE");
}

void SqliteConnection::CommitTrans() {
  file_->main->Run("COMMIT");
}

void SqliteConnection::RollbackTrans() {
  file_->logs_changes = false;  // the triggers go with the transaction that they were made in
  file_->main->Run("ROLLBACK");
}

void SqliteConnection::WriteAs(const ChangeAuthor* author) {
  file_->author = author;
}

void SqliteConnection::Cancel() {
  file_->main->Interrupt();
  file_->readers.Interrupt();
}

}  // namespace host
