#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "database/change_author.h"
#include "database/postgres/postgres_url.h"
#include "session/connection.h"

namespace host {

class PostgresServer;

// How a connection works with its server.
struct PostgresWay {
  std::string application_name = {};  // how the server knows it; empty is the URL's
  // Selects outside a transaction read through connections of their own.
  bool readers = true;
  std::string search_path = {};  // empty is `kSearchPath`
  bool only_looks = false;       // for a login that may change nothing
  // Its statements take a moment; a server that takes longer is lost.
  std::optional<std::chrono::milliseconds> longest = {};
};

// A practice database on a PostgreSQL server. Statements are PostgreSQL's own (see PreparePostgres).
//
// Values come by the type of their column, of an expression too: an int64 of whole numbers and truth values, Currency
// of numeric(19,4), a double of other numbers, DateTime, Guid, Blob, text of all else. Names of the schema have its
// capitals, its text columns their sizes.
//
// A batch of several statements is carried out whole or not at all; in a transaction, one that fails leaves what came
// before it. A single select outside a transaction reads through a reader, row by row as they are asked for, so that a
// list that is half read neither holds up a save nor fills the memory.
//
// A lost connection is DatabaseError with `ConnectionLost`, and ends the transaction; the next statement outside one
// connects again. What is seen to be lost before anything is sent is made again without a word. Where the answer to
// a commit did not come the server is asked for its outcome at once; where that does not help, and for a change outside
// a transaction, the loss is `Unanswered`. Another program that holds a row is waited for until `WhileBusy` gives it
// up, or some seconds where nobody could.
class PostgresConnection final : public session::Connection {
 public:
  // Throws session::DatabaseError that names the database and its server, never a password.
  explicit PostgresConnection(const std::string& url, const PostgresWay& way = {});
  PostgresConnection(const PostgresConnection&) = delete;
  PostgresConnection& operator=(const PostgresConnection&) = delete;
  ~PostgresConnection() override;

  bool ReadOnly() const override;
  std::unique_ptr<session::Recordset> Execute(const std::string& sql) override;
  void BeginTrans() override;
  void CommitTrans() override;
  // Silent after the loss of the connection and after a commit that failed.
  void RollbackTrans() override;
  void Cancel() override;

  // The process that serves it there.
  int Process() const;

  // Whose the changes are from now on, nullptr for nobody's, and the office that they are seen from, 0 for every one:
  // the session variables practice.author, practice.moment and practice.office.
  void WriteAs(const ChangeAuthor* author);
  void EnterOffice(int office);

 private:
  std::unique_ptr<PostgresServer> server_;
};

}  // namespace host
