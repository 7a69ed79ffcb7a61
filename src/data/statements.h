#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data/sql.h"
#include "session/session.h"

namespace data {

// A column and its literal, as an insert or an update writes them.
struct Assignment {
  Assignment(Words column_name, Sql literal) : column(column_name), value(std::move(literal)) {}
  Assignment(Words column_name, Words expression) : column(column_name), value(expression) {}

  Words column;
  Sql value;
};
using Assignments = std::vector<Assignment>;

// The verbs of every screen: statements in the one dialect, prepared and run on the session's connection. All throw
// session::DatabaseError.
class Statements {
 public:
  explicit Statements(session::Database& database) : database_(database) {}

  std::unique_ptr<session::Recordset> Select(const Sql& sql) const;
  void Execute(const Sql& sql) const;
  // The first column of the first row; null when there is no row.
  session::Value SelectValue(const Sql& sql) const;

  // The new row's ID. On an office-scoped database the row belongs to the current office; a table that keeps row
  // GUIDs is given one.
  std::int32_t Insert(Words table, Assignments values) const;
  // Writes nothing when there is nothing to set.
  void Update(Words table, const Assignments& values, Words key, std::int32_t id) const;

  bool OfficeScoped() const { return database_.DatabaseKind() == session::kOfficeScoped; }
  // `before` + the current office + `after`, as " AND (OfficeID=" and ")"; empty where the database holds one office.
  Sql Office(Words before, Words after) const;
  // The form that most statements carry: " AND (OfficeID=3)".
  Sql Office() const { return Office(" AND (OfficeID=", ")"); }
  // A join's condition, given as " and (ELTable.OfficeID = EmpTable.OfficeID) "; empty where there is one office.
  Sql OfficeJoin(Words condition) const { return OfficeScoped() ? Sql(condition) : Sql(); }

 private:
  // The engine's words. Throws session::DatabaseError that lays it to the translation.
  std::string Prepared(const Sql& sql) const;

  session::Database& database_;
};

}  // namespace data
