#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "database/change_author.h"
#include "database/private_files.h"
#include "database/schema_writer.h"
#include "session/connection.h"

namespace host {

// An open practice database of whichever engine.
struct PracticeDatabase {
  std::unique_ptr<session::Connection> connection;
  // The screens' dialect as the engine reads it.
  std::string (*prepare)(std::string_view statement) = nullptr;
  const SchemaWriter* schema = nullptr;
  CreationOptions options;
  // Whose the changes are from now on, for the change log; nullptr for nobody's.
  std::function<void(const ChangeAuthor* author)> write_as;
  // The office that the statements from now on work in, for an engine that keeps the offices apart itself; empty for
  // others.
  std::function<void(int office)> enter_office = {};
  // Every office there is, for an engine that knows; empty for others, whose locations tell.
  std::function<std::vector<int>()> offices = {};
  // Where its programs write down the records that they hold: quick, and worth nothing after the machine has stopped.
  // Null for an engine that holds records itself.
  std::unique_ptr<session::Connection> locks;
  // Of an engine that holds records itself: a further connection to the same database, which the server knows by a
  // name.
  std::function<std::unique_ptr<session::Connection>(const std::string& name)> connect = {};
  // The same in a group of practices, to the server of an office.
  std::function<std::unique_ptr<session::Connection>(const std::string& name, int office)> connect_in = {};
  // Other programs may have it open too.
  bool shared = false;
  // Who may open its file, and what else belongs to the practice.
  Access access = Access::Owner;

  // Runs a statement in the screens' dialect.
  std::unique_ptr<session::Recordset> Run(std::string_view statement) const {
    return connection->Execute(prepare(statement));
  }
  bool KeepsRowGuids(std::string_view table) const;
};

// The database at a URL: "sqlite:PATH", "postgresql://...", "odbc:CONNECTION-STRING". All throw
// session::DatabaseError, for an engine that there is not too.
//
// Makes a new one; there must be none.
PracticeDatabase CreateDatabase(const std::string& url, const CreationOptions& options = {});
// One without tables, for `CreateSchema`, if there is none yet.
PracticeDatabase OpenNewDatabase(const std::string& url, const CreationOptions& options);
// Opens an existing one and brings an older one up to date.
PracticeDatabase OpenDatabase(const std::string& url);
// Whether one can be made there: there is none, or one without tables.
bool IsVacant(const std::string& url);
// What names a database on a server among all others, whoever connects and how: server, port and database. Empty for a
// file.
std::string PlaceOf(const std::string& url);

}  // namespace host
