#include "database/postgres/postgres_error.h"

#include <algorithm>

#include "database/schema.h"
#include "forms/text.h"
#include "session/sql_state.h"

namespace host {
namespace {

// The column that a check is about, which is called "table_column_check".
const Column* CheckedColumn(const std::string& table_name, std::string_view check) {
  const Table* table = FindTable(table_name);
  if (table == nullptr) {
    return nullptr;
  }
  for (const Column& column : table->columns) {
    if (forms::EqualsIgnoringCase(check, table_name + "_" + std::string(column.name) + "_check")) {
      return &column;
    }
  }
  return nullptr;
}

std::string BrokenCheck(const PostgresRefusal& refusal) {
  const Column* column = CheckedColumn(refusal.table, refusal.constraint);
  if (column == nullptr || column->size == 0) {
    return refusal.message;
  }
  return "The text for " + std::string(column->name) + " is too long: there is room for " +
         std::to_string(column->size) + " characters.";
}

std::string Reason(const PostgresRefusal& refusal) {
  const auto& [state, message, detail, table, column, constraint] = refusal;
  if (state == "57014") {
    return "It was ended before it was done.";
  }
  if (state == "55P03") {
    return "Another program is writing to the database, and the wait for it was ended. Please try again.";
  }
  if (state == "40P01" || state == "40001") {
    return "Another program was writing the same records at the same moment. Please try again.";
  }
  if (state == "25006") {
    return "The database can only be read: it is protected against writing.";
  }
  if (state == "42501") {
    return "The database login may not do this: " + message + ".";
  }
  if (state == "53100") {
    return "The disk of the database server is full.";
  }
  if (state == "23505") {
    return "There is such a record already" + (detail.empty() ? "." : ": " + detail);
  }
  if (state == "23502") {
    return "A value is missing for " + column + ".";
  }
  if (state == "23514") {
    return BrokenCheck(refusal);
  }
  if (state == "22003") {
    return "A number is too large for its field: " + message + ".";
  }
  return message;
}

}  // namespace

session::DatabaseError Refused(const PostgresRefusal& refusal, std::string_view statement) {
  if (refusal.state.empty() || session::IsLoss(refusal.state)) {
    return Loss(refusal.message, statement);
  }
  return {Reason(refusal), statement, CodeOfState(refusal.state)};
}

session::DatabaseError Loss(std::string_view why, std::string_view statement) {
  return {"The connection to the database server was lost: " + Plain(why), statement, CodeOfState("08006"),
          session::DatabaseError::Origin::Connection};
}

std::string Plain(std::string_view message) {
  std::string plain;
  while (!message.empty()) {
    const std::size_t end = std::min(message.find('\n'), message.size());
    std::string_view line = message.substr(0, end);
    message.remove_prefix(std::min(end + 1, message.size()));
    // Lines further in are hints.
    if (line.empty() || line.starts_with('\t')) {
      continue;
    }
    for (const std::string_view level : {"FATAL:", "PANIC:", "ERROR:"}) {
      if (const std::size_t at = line.find(level); at != std::string_view::npos) {
        line.remove_prefix(at + level.size());
      }
    }
    plain += (plain.empty() ? "" : "; ") + std::string(forms::Trim(line));
  }
  return plain.ends_with('.') ? plain : plain + ".";
}

session::DatabaseError OfAChange(const session::DatabaseError& error) {
  using session::DatabaseError;
  return error.ConnectionLost()
             ? DatabaseError(error.what(), error.Statement(), error.Code(), DatabaseError::Origin::Unanswered)
             : error;
}

}  // namespace host
