#include "practice/copy_notes.h"

#include "database/migration.h"
#include "forms/text.h"

namespace host {
namespace {

bool HasNotes(const PracticeDatabase& database) {
  bool found = false;
  for (const auto rows = database.connection->Execute(database.schema->Tables()); !rows->Eof(); rows->MoveNext()) {
    found = found || forms::EqualsIgnoringCase(session::ToText(rows->Get(0)), kCopyNotes);
  }
  return found;
}

std::string Named(const Table& table) {
  return " WHERE CopTab='" + std::string(table.name) + "'";
}

// The practice's own row waits beside its table: without it nobody takes the database for a practice.
void Begin(const PracticeDatabase& target, const CreationOptions& options) {
  session::Transaction transaction(*target.connection);
  CreateSchema(*target.connection, *target.schema, options);
  for (const char* statement : {
           "CREATE TABLE CopyTable (CopTab varchar(60), CopKey int, CopOff int)",
           "CREATE TABLE CopySchemaTable (SchVersion int, SchKind int, SchOffice int, SchOffices int, "
           "SchRowGuids smallint)",
           "INSERT INTO CopySchemaTable SELECT SchVersion, SchKind, SchOffice, SchOffices, SchRowGuids FROM "
           "SchemaTable",
           "DELETE FROM SchemaTable",
       }) {
    target.connection->Execute(statement);
  }
  transaction.Commit();
}

void CheckKind(const PracticeDatabase& target, const CreationOptions& options) {
  const auto begun =
      target.connection->Execute("SELECT SchVersion, SchKind, SchOffice, SchOffices, SchRowGuids FROM CopySchemaTable");
  const auto is = [&](std::size_t field, int value) { return session::ToId(begun->Get(field)) == value; };
  if (begun->Eof() || !is(0, kSchemaVersion) || !is(1, options.kind) || !is(2, options.office) ||
      !is(3, options.offices) || !is(4, options.row_guids ? 1 : 0)) {
    throw session::DatabaseError(
        "The copy that was broken off there is one of another practice, or by another version of the program. Please "
        "empty the database first.",
        {}, 0);
  }
}

}  // namespace

CopyNotes::CopyNotes(const PracticeDatabase& target, const CreationOptions& options) : target_(target) {
  if (HasNotes(target)) {
    CheckKind(target, options);
  } else {
    Begin(target, options);
  }
}

std::optional<RowPlace> CopyNotes::Behind(const Table& table) const {
  const auto note = target_.connection->Execute("SELECT CopKey, CopOff FROM CopyTable" + Named(table));
  return note->Eof() ? std::nullopt : std::optional(RowPlace{session::ToId(note->Get(0)), session::ToId(note->Get(1))});
}

void CopyNotes::Note(const Table& table, const RowPlace& place) const {
  target_.connection->Execute("DELETE FROM CopyTable" + Named(table));
  target_.connection->Execute("INSERT INTO CopyTable (CopTab, CopKey, CopOff) VALUES ('" + std::string(table.name) +
                              "', " + std::to_string(place.key) + ", " + std::to_string(place.office) + ")");
}

void CopyNotes::Forget(const Table& table) const {
  session::Transaction transaction(*target_.connection);
  target_.connection->Execute("DELETE FROM " + std::string(table.name));
  target_.connection->Execute("DELETE FROM CopyTable" + Named(table));
  transaction.Commit();
}

void CopyNotes::Finish() const {
  for (const char* statement :
       {"INSERT INTO SchemaTable (SchVersion, SchKind, SchOffice, SchOffices, SchRowGuids) SELECT SchVersion, SchKind, "
        "SchOffice, SchOffices, SchRowGuids FROM CopySchemaTable",
        "DROP TABLE CopySchemaTable", "DROP TABLE CopyTable"}) {
    target_.connection->Execute(statement);
  }
}

}  // namespace host
