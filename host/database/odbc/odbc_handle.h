#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "database/odbc/odbc_text.h"
#include "database/odbc/odbc_worker.h"
#include "database/postgres/postgres_session.h"
#include "session/connection.h"

namespace host {

// Frees its handle, and its cursor with it.
struct FreeOdbcStatement {
  void operator()(SQLHSTMT statement) const { SQLFreeHandle(SQL_HANDLE_STMT, statement); }
};
using OdbcStatement = std::unique_ptr<void, FreeOdbcStatement>;

// One of ODBC's connections. While a statement waits for the server `while_busy` is called. Failures are
// session::DatabaseError; where the connection is lost their origin says so.
class OdbcHandle {
 public:
  // `fixed` is set once, on a PostgreSQL server; `while_busy` outlives the handle.
  OdbcHandle(const std::string& connection_string, const PostgresSettings& fixed, const session::WhileBusy& while_busy);
  OdbcHandle(const OdbcHandle&) = delete;
  OdbcHandle& operator=(const OdbcHandle&) = delete;
  ~OdbcHandle();

  // Whether the driver says so.
  bool ReadOnly() const;
  // Of the server behind the driver: "PostgreSQL".
  std::string ServerName() const;
  // As far as the driver has noticed.
  bool Lost() const;

  // Runs a text, whose first result is there to be read then; `batch` is what failures name.
  OdbcStatement Execute(const std::string& text, const std::string& batch);
  // Makes a call that waits for the server, which returns what ODBC returned, and tells whether there was anything:
  // false is the end of the rows or of the results.
  bool Work(SQLHSTMT statement, const std::string& batch, const std::function<int()>& call);

  // Sets what the server is not known to have, by `set_config`, and tells whether there was anything.
  bool Set(const PostgresSettings& settings);
  // Has the server answer.
  void Greet() { Ask("SELECT 1"); }
  // After a rollback nobody knows which have stayed.
  void ForgetSettings() { set_.clear(); }

  void BeginTrans();
  // Commits, or rolls back. The transaction is over, whatever came of it.
  void EndTrans(bool commit);

  // Whether the statement waits for another program; asked now and then while it runs. Runs nothing here.
  std::function<bool()> waits_for_another;

  // Ends the statement that is under way, from whichever thread.
  void Interrupt();
  // What runs puts right what was ended: Interrupt leaves it alone.
  bool undisturbed = false;
  // How Interrupt does that, and whether it could; from whichever thread. Otherwise the driver is asked, which not
  // every driver manager bears at every moment of a call.
  std::function<bool()> ends_statement;

 private:
  struct FreeEnvironment {
    void operator()(SQLHENV handle) const { SQLFreeHandle(SQL_HANDLE_ENV, handle); }
  };
  struct FreeConnection {
    void operator()(SQLHDBC handle) const;
  };

  std::string Told(SQLUSMALLINT what) const;
  int WaitFor(const std::function<int()>& call);
  OdbcStatement Allocate();
  void Ask(const std::string& select);
  session::DatabaseError Refusal() const;

  const session::WhileBusy& while_busy_;
  std::unique_ptr<void, FreeEnvironment> environment_;
  std::unique_ptr<void, FreeConnection> connection_;
  OdbcWorker worker_;
  PostgresSettings set_;  // what the server is known to have
  std::mutex working_;    // Interrupt comes from other threads
  SQLHSTMT at_work_ = nullptr;
  SQLHSTMT interrupted_ = nullptr;  // what was ended last
  std::chrono::steady_clock::time_point interrupted_at_;
};

}  // namespace host
