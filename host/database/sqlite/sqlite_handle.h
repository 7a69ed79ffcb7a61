#pragma once

#include <sqlite3.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/connection.h"

namespace host {

struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using SqliteStatement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

// The key of the row that was inserted last on a connection; nothing after a table that hands out no keys.
using Identity = std::optional<std::int64_t>;

// Where the handles of a database open it.
struct SqliteSource {
  std::string name;  // a path, or a URI
  int flags = 0;     // of sqlite3_open_v2
};

// One of SQLite's connections, with the functions that prepared statements use: identity(), match() and the collation
// UNICODE_NOCASE. Failures are session::DatabaseError.
class SqliteHandle {
 public:
  // `identity` and `while_busy`, which is called while a statement runs or waits, outlive the handle.
  SqliteHandle(const SqliteSource& source, Identity& identity, const session::WhileBusy& while_busy);

  // Whether the file is protected against writing.
  bool ReadOnly() const { return sqlite3_db_readonly(database_.get(), "main") == 1; }
  bool InTransaction() const { return sqlite3_get_autocommit(database_.get()) == 0; }
  // Compiles the first statement of `text`, which ends with a zero, and leaves the rest there; null for nothing but
  // blanks. `batch` is what failures name.
  SqliteStatement Prepare(std::string_view& text, const std::string& batch);
  // True for a row, false at the end.
  bool Step(sqlite3_stmt* statement, const std::string& batch);
  // Runs a batch that has no rows.
  void Run(const std::string& batch);
  // A function without arguments for statements, which is given `state` as its user data.
  void AddFunction(const char* name, const void* state, void (*answer)(sqlite3_context*, int, sqlite3_value**));
  // False for a file that is damaged, or no database.
  bool IsSound();
  // Takes everything out of a file, whatever is in it.
  void Empty();
  // Ends the step that is under way, from whichever thread.
  void Interrupt();

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  };
  struct InsertedRow {
    std::string table;
    std::int64_t row = 0;
  };

  // How SQLite asks whether to go on, after some steps and after each try for a lock.
  static int GiveUpRunning(void* handle);
  static int WaitOn(void* handle, int tries);
  void EndWait();
  static void NoteInsert(void* handle, int operation, const char* schema, const char* table, sqlite3_int64 row);
  void TakeIdentity();
  [[noreturn]] void Fail(const std::string& batch) const;

  std::unique_ptr<sqlite3, Close> database_;
  Identity& identity_;
  const session::WhileBusy& while_busy_;
  std::optional<InsertedRow> inserted_;
  std::atomic<bool> stepping_ = false;
  bool told_ = false;  // since `Busy::Done` was told last
};

// Handles that read, each for one recordset at a time.
class SqliteReaders {
 public:
  struct GiveBack {
    SqliteReaders* readers = nullptr;
    void operator()(SqliteHandle* reader) const { readers->idle_.push_back(reader); }
  };
  using Lease = std::unique_ptr<SqliteHandle, GiveBack>;

  // All three outlive the readers.
  SqliteReaders(const SqliteSource& source, Identity& identity, const session::WhileBusy& while_busy)
      : source_(source), identity_(identity), while_busy_(while_busy) {}

  Lease Borrow();
  void Interrupt();

 private:
  const SqliteSource& source_;
  Identity& identity_;
  const session::WhileBusy& while_busy_;
  std::mutex growing_;  // Interrupt comes from other threads
  std::vector<std::unique_ptr<SqliteHandle>> all_;
  std::vector<SqliteHandle*> idle_;
};

}  // namespace host
