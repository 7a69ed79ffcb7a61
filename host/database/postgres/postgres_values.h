#pragma once

#include <libpq-fe.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "database/schema.h"
#include "session/connection.h"

namespace host {

// The value of a cell that the server sent as text.
session::Value ValueAt(const PGresult* result, int row, int column, session::FieldType type);

// What is known of the columns of results: the schema's capitals and sizes, which the server does not send.
class PostgresColumns {
 public:
  // Runs a select that needs no rights and returns its rows, or null.
  using Ask = std::function<std::unique_ptr<session::Recordset>(const std::string& select)>;

  explicit PostgresColumns(Ask ask) : ask_(std::move(ask)) {}

  std::vector<session::Field> FieldsOf(const PGresult* result);

 private:
  // By its number in a table; null for what is not the schema's.
  const Column* Find(Oid table, int number);

  Ask ask_;
  std::map<Oid, std::map<int, const Column*>> tables_;
};

}  // namespace host
