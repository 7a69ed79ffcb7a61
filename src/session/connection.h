#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "session/value.h"

namespace session {

// The database refused a statement. The one root of its failures. Numbers of payment cards are masked in all that it
// holds.
class DatabaseError : public std::runtime_error {
 public:
  // Who refused it: the engine, or before it the session's `PrepareSQL`; or the connection was lost, and is made again
  // by the next statement where that can be. Nothing of the statement was done then, nor of the transaction that it
  // was in; but `Unanswered` is a change whose answer was lost, so that nobody knows whether it was made.
  enum class Origin { Engine, Translation, Connection, Unanswered };

  DatabaseError(const std::string& what, std::string_view statement, int code, Origin origin = Origin::Engine);

  const std::string& Statement() const { return statement_; }
  bool ConnectionLost() const { return origin_ == Origin::Connection || Unanswered(); }
  bool Unanswered() const { return origin_ == Origin::Unanswered; }
  // The engine's own number.
  int Code() const { return code_; }
  // As a person is told: what was being done, why it failed, and the statement's first words; why alone where no
  // statement was run.
  std::string Told() const;
  // The same of another statement.
  DatabaseError Of(std::string_view statement) const;

  // The person was asked about it, and gave the statement up.
  bool given_up = false;

 private:
  std::string statement_;
  int code_;
  Origin origin_;
};

enum class FieldType { Integer, Double, Currency, Text, DateTime, Guid, Blob };

struct Field {
  std::string name;
  FieldType type = FieldType::Text;
  int defined_size = 0;  // characters of a text column; 0 is unlimited
};

// The rows of a statement, read forward. Rows are fetched as they are asked for. A recordset must not outlive its
// connection.
class Recordset {
 public:
  virtual ~Recordset() = default;

  virtual const std::vector<Field>& Fields() const = 0;
  virtual bool Eof() const = 0;
  // Throws DatabaseError.
  virtual void MoveNext() = 0;
  // Of the current row.
  virtual Value Get(std::size_t field) const = 0;

  // By column name, without regard to case; throws DatabaseError for a column that is not there.
  Value operator[](std::string_view name) const;
  // -1 when there is no such column.
  int FieldIndex(std::string_view name) const;
  // At most `count` rows from the current one on; the recordset stands behind them.
  std::vector<std::vector<Value>> GetRows(std::size_t count);
};

// What keeps a statement: its own work, the same where the next key ends it (`RunUnless`), or another program that
// writes; `Done` when one of which was told has ended.
enum class Busy { Running, Reading, Waiting, Done };
// True gives the statement up.
using WhileBusy = std::function<bool(Busy)>;

class Connection {
 public:
  virtual ~Connection() = default;

  // Whether the database is protected against writing, as far as is known.
  virtual bool ReadOnly() const { return false; }
  // Runs prepared statement text, several statements parted by ";" too; the rows are those of the last statement
  // that has any. Throws DatabaseError.
  virtual std::unique_ptr<Recordset> Execute(const std::string& sql) = 0;
  virtual void BeginTrans() = 0;
  virtual void CommitTrans() = 0;
  virtual void RollbackTrans() = 0;
  // Ends the statement that is running, from whichever thread; it throws DatabaseError where it ran.
  virtual void Cancel() = 0;

  // Called now and then while a statement runs or waits, where it runs: a window may paint then, and hear a person who
  // gives it up, but run no statement. One that is given up throws DatabaseError.
  session::WhileBusy WhileBusy;
  // Asked when the connection was lost and what was being done may be done again as it is: true does.
  std::function<bool(const DatabaseError& error)> TryAgain;
};

// Does the work again for as long as the connection is lost in it and `TryAgain` wants that. The work is one statement,
// or can be repeated from any point.
void Insist(Connection& connection, const std::function<void()>& work);

// Nobody is asked whether to try again for as long as it lives.
class Unasked {
 public:
  explicit Unasked(Connection& connection)
      : connection_(connection), try_again_(std::exchange(connection.TryAgain, nullptr)) {}
  Unasked(const Unasked&) = delete;
  Unasked& operator=(const Unasked&) = delete;
  ~Unasked() { connection_.TryAgain = std::move(try_again_); }

 private:
  Connection& connection_;
  std::function<bool(const DatabaseError& error)> try_again_;
};

// Does the work, and gives up the statement of it that runs when `unwanted` turns true. False when one was given up
// for that; what else the database refuses is thrown.
bool RunUnless(Connection& connection, const std::function<bool()>& unwanted, const std::function<void()>& work);

// Rolls back at its end unless committed. No statement of it is tried again by itself.
class Transaction {
 public:
  explicit Transaction(Connection& connection);
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();

  void Commit();

 private:
  Connection& connection_;
  std::optional<Unasked> unasked_;
  bool open_ = true;
};

}  // namespace session
