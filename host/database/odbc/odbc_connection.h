#pragma once

#include <memory>
#include <mutex>
#include <string>

#include "database/odbc/odbc_lookout.h"
#include "database/odbc/odbc_readers.h"
#include "session/connection.h"

namespace host {

// A practice database behind an ODBC driver. Statements are the server's own.
//
// Values come by the type that the driver tells of their column: an int64, Currency of a decimal with four decimals, a
// double of others, text, DateTime, Guid, bytes. Text is fetched whole, whatever its reported size; a field has the
// practice's own size where it is a column of it.
//
// A select outside a transaction reads through a connection of its own, so that a list that is half read neither holds
// up a save nor is held up. Everything else is run on one connection, and its rows are fetched whole.
//
// A lost connection is DatabaseError with `ConnectionLost`, and ends the transaction; the next statement outside one
// connects again. What is found to be lost before anything is sent is made again without a word; a change or a commit
// whose answer did not come is `Unanswered`.
class OdbcConnection final : public session::Connection {
 public:
  // Throws session::DatabaseError.
  explicit OdbcConnection(OdbcSource source);
  OdbcConnection(const OdbcConnection&) = delete;
  OdbcConnection& operator=(const OdbcConnection&) = delete;
  ~OdbcConnection() override;

  bool ReadOnly() const override { return read_only_; }
  std::unique_ptr<session::Recordset> Execute(const std::string& sql) override;
  void BeginTrans() override;
  void CommitTrans() override;
  // Silent after the loss of the connection and after a commit that failed.
  void RollbackTrans() override;
  void Cancel() override;

  // Whom and where statements are run for; a PostgreSQL server is told before each.
  PostgresUse use;

 private:
  std::unique_ptr<session::Recordset> InTransaction(const std::string& sql);
  // nullptr where the server takes no further connection.
  std::unique_ptr<session::Recordset> ReadApart(const std::string& sql);
  // Before all else outside a transaction: hears whether the server is still there, and connects again where it is not.
  void Reach();
  void Connect();
  PostgresSettings ForWriting() const;
  // Lets a new connection wait and be ended as the server allows; whether it may only be read.
  bool Introduce(OdbcHandle& made);
  enum class Transaction {
    None,
    Open,
    Over,  // by a commit that failed
  };

  const OdbcSource source_;
  OdbcLookout lookout_{source_};
  std::mutex changing_;  // Cancel comes from other threads
  std::unique_ptr<OdbcHandle> main_;
  bool read_only_ = false;
  Transaction transaction_ = Transaction::None;
  OdbcReaders readers_;
};

}  // namespace host
