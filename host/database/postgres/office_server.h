#pragma once

#include <map>
#include <string>
#include <vector>

#include "database/database.h"
#include "database/postgres/office_directory.h"
#include "database/postgres/postgres_roles.h"
#include "database/postgres/postgres_url.h"

namespace host {

// One server of a group, for whoever changes the group. In it stand
//   practice       the directory, and the functions and operators of all offices
//   office_N       the tables of an office that is at home here
//   offices        each table with the rows of all offices of the group: its partitions are the offices' tables, and
//                  for each other server a table there
//   home           the rows of the offices at home here, which the other servers read
//   at_NAME        what is read from another server
// All throw session::DatabaseError.
class OfficeServer {
 public:
  // As a role that owns the tables.
  OfficeServer(std::string name, PostgresUrl url, PracticeDatabase database)
      : name_(std::move(name)), url_(std::move(url)), database_(std::move(database)) {}

  const std::string& Name() const { return name_; }
  const PostgresUrl& Url() const { return url_; }
  session::Connection& Connection() const { return *database_.connection; }
  void Run(const std::string& statements) const { Connection().Execute(statements); }

  // Makes a database without tables a server that no office is at home at. `version` is for tests of what an older
  // program has made.
  void Found(const CreationOptions& options, int version = kSchemaVersion) const;
  // Of the tables.
  int Version() const;
  // Nobody else changes the group from now on, for as long as this one is connected.
  void Reserve() const;
  // Has a login work in offices of the group, those that come here later too.
  void Admit(const DeskLogin& login, const OfficeDirectory& directory) const;
  bool Knows(const std::string& login) const;
  // Knows the logins that another server knows.
  void TakeDesksOf(const OfficeServer& other) const;
  // The logins that may enter an office but which another server has not.
  std::vector<std::string> DesksMissingAt(const OfficeServer& other, std::int32_t office) const;
  // Brings what stands here in line with the directory. `servers` has all servers of the group.
  void Settle(const OfficeDirectory& directory, const std::map<std::string, OfficeServer>& servers) const;
  // The same with the tables of an older version, which are brought up to date. What breaks off is completed by the
  // next call.
  void Migrate(const OfficeDirectory& directory, const std::map<std::string, OfficeServer>& servers) const;

 private:
  void MakeParents(const CreationOptions& options, int version) const;
  void DropParents() const;
  std::vector<std::string> Tables() const;
  void Reach(const OfficeServer& other) const;
  void ShowOffices(const OfficeDirectory& directory) const;
  void TakeOfficesIn(const OfficeDirectory& directory) const;
  void LetOfficesGo(const OfficeDirectory& directory) const;

  std::string name_;
  PostgresUrl url_;
  PracticeDatabase database_;
};

// The first column of what a statement finds.
std::vector<std::string> FirstColumn(session::Connection& connection, const std::string& statement);

}  // namespace host
