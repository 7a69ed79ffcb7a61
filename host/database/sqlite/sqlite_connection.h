#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "database/change_author.h"
#include "database/private_files.h"
#include "session/connection.h"

namespace host {

class SqliteFile;

session::DatabaseError CannotBeOpened(const std::string& path, const std::string& why, int code);

// The path of a database that lives as long as its connection.
inline constexpr std::string_view kMemory = ":memory:";

// `Passing` is `OrNew` for what is worth nothing after the machine has stopped: no statement waits for the disk, and a
// file that a power cut has spoilt is emptied.
enum class OpenMode { Existing, OrNew, Passing };

// A practice database in a SQLite file. Statements are SQLite's own (see PrepareSqlite).
//
// Values come by the declared type of their column: an int64 of an int, smallint or bit, Currency of money, text,
// DateTime, Guid; of an expression by what it yields. Money is stored as a real and rounded to four decimals.
// A moment is stored in the one form that sorts: "1980-01-02" at midnight, "1980-01-02 14:05:00" otherwise.
//
// A select outside a transaction reads through a handle of its own, so that a list that is half read neither holds
// up a save nor shows the rows read after it as they were when it was opened.
//
// A file that is protected against writing is read, and a statement that writes is refused. Another program that
// writes is waited for until `WhileBusy` gives it up, or some seconds where nobody could.
class SqliteConnection final : public session::Connection {
 public:
  // A file is opened to those of `access` alone. Throws session::DatabaseError that names the path.
  explicit SqliteConnection(const std::string& path, OpenMode mode = OpenMode::OrNew, Access access = Access::Owner);
  SqliteConnection(const SqliteConnection&) = delete;
  SqliteConnection& operator=(const SqliteConnection&) = delete;
  ~SqliteConnection() override;

  bool ReadOnly() const override;
  std::unique_ptr<session::Recordset> Execute(const std::string& sql) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;
  void Cancel() override;

  // Whose the changes are from now on, nullptr for nobody's: those are not logged. The practice has its tables by then.
  void WriteAs(const ChangeAuthor* author);

 private:
  std::unique_ptr<SqliteFile> file_;
};

}  // namespace host
