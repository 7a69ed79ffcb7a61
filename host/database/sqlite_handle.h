#pragma once

#include <sqlite3.h>

#include <atomic>
#include <cstdint>
#include <functional>
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

session::DatabaseError CannotBeOpened(const std::string& path, const std::string& why, int code);

// One of SQLite's connections, with the functions that prepared statements use: identity(), match() and the collation
// UNICODE_NOCASE. Failures are session::DatabaseError.
class SqliteHandle {
 public:
  // `identity` and `while_busy`, which is called while a statement runs, outlive the handle.
  SqliteHandle(const std::string& path, int open_flags, Identity& identity, const std::function<void()>& while_busy);

  bool InTransaction() const { return sqlite3_get_autocommit(database_.get()) == 0; }
  // Compiles the first statement of `text` and leaves the rest there; null for nothing but blanks. `batch` is what
  // failures name.
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

  static void NoteInsert(void* handle, int operation, const char* schema, const char* table, sqlite3_int64 row);
  void TakeIdentity();
  [[noreturn]] void Fail(const std::string& batch) const;

  std::unique_ptr<sqlite3, Close> database_;
  Identity& identity_;
  std::optional<InsertedRow> inserted_;
  std::atomic<bool> stepping_ = false;
};

// Handles that read, each for one recordset at a time.
class SqliteReaders {
 public:
  struct GiveBack {
    SqliteReaders* readers = nullptr;
    void operator()(SqliteHandle* reader) const { readers->idle_.push_back(reader); }
  };
  using Lease = std::unique_ptr<SqliteHandle, GiveBack>;

  SqliteReaders(std::string path, Identity& identity, const std::function<void()>& while_busy)
      : path_(std::move(path)), identity_(identity), while_busy_(while_busy) {}

  Lease Borrow();
  void Interrupt();

 private:
  std::string path_;
  Identity& identity_;
  const std::function<void()>& while_busy_;
  std::mutex growing_;  // Interrupt comes from other threads
  std::vector<std::unique_ptr<SqliteHandle>> all_;
  std::vector<SqliteHandle*> idle_;
};

}  // namespace host
