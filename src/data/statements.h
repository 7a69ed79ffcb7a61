#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "session/session.h"

namespace data {

// Columns and their literals, as an insert or an update writes them.
using Assignments = std::vector<std::pair<std::string, std::string>>;

// The verbs of every screen: statements in the one dialect, prepared and run on the session's connection. All throw
// session::DatabaseError.
class Statements {
 public:
  explicit Statements(session::Database& database) : database_(database) {}

  std::unique_ptr<session::Recordset> Select(const std::string& sql) const;
  void Execute(const std::string& sql) const;
  // The first column of the first row; null when there is no row.
  session::Value SelectValue(const std::string& sql) const;

  // The new row's ID. On an office-scoped database the row belongs to the current office; a table that keeps row
  // GUIDs is given one.
  std::int32_t Insert(std::string_view table, Assignments values) const;
  // Writes nothing when there is nothing to set.
  void Update(std::string_view table, const Assignments& values, std::string_view key, std::int32_t id) const;

  bool OfficeScoped() const { return database_.DatabaseKind() == session::kOfficeScoped; }
  // `before` + the current office + `after`, as " AND (OfficeID=" and ")"; empty where the database holds one office.
  std::string Office(std::string_view before, std::string_view after) const;
  // The form that most statements carry: " AND (OfficeID=3)".
  std::string Office() const { return Office(" AND (OfficeID=", ")"); }
  // A join's condition, given as " and (ELTable.OfficeID = EmpTable.OfficeID) "; empty where there is one office.
  std::string OfficeJoin(std::string_view condition) const { return OfficeScoped() ? std::string(condition) : ""; }

 private:
  session::Database& database_;
};

}  // namespace data
