#include "database/migration.h"

#include <algorithm>
#include <functional>

#include "forms/text.h"

namespace host {
namespace {

[[noreturn]] void Refuse(const std::string& why) {
  throw session::DatabaseError(why, {}, 0);
}

[[noreturn]] void RefuseStranger() {
  Refuse("This database holds no practice.");
}

void RunAll(session::Connection& connection, const std::vector<std::string>& statements) {
  for (const std::string& statement : statements) {
    connection.Execute(statement);
  }
}

// Gives columns that came in what older rows shall have in them.
void FillColumns(session::Connection& connection, const Table& table, const std::function<bool(int since)>& is_due) {
  for (const Column& column : table.columns) {
    if (is_due(column.since) && !column.upgrade.empty()) {
      connection.Execute("UPDATE " + std::string(table.name) + " SET " + std::string(column.name) + "=" +
                         std::string(column.upgrade));
    }
  }
}

// From version 0, which has no tables, to `to`, everything that came in between.
void Upgrade(session::Connection& connection, const SchemaWriter& writer, const CreationOptions& options, int from,
             int to) {
  const auto is_due = [&](int since) { return from < since && since <= to; };
  for (const Table& table : PracticeTables()) {
    if (table.since > to) {
      continue;
    }
    if (is_due(table.since)) {
      RunAll(connection, writer.CreateTable(table, options, to));
    } else {
      for (const Column& column : table.columns) {
        if (is_due(column.since)) {
          RunAll(connection, writer.AddColumn(table, column));
        }
      }
    }
    if (from > 0) {
      FillColumns(connection, table, is_due);
    }
    for (const Index& index : table.indexes) {
      if (is_due(std::max(index.since, table.since))) {
        RunAll(connection, writer.CreateIndex(table, index));
      }
    }
  }
  if (is_due(4)) {
    // Until then the record locks stood in the practice itself.
    RunAll(connection, writer.DropTable("RecordLockTable"));
  }
  if (FindTable(kChangeLog)->since <= to) {
    for (const Table& table : PracticeTables()) {
      if (table.logged && table.since <= to) {
        RunAll(connection, writer.LogChanges(table, to));
      }
    }
  }
  RunAll(connection, writer.Finish());
}

// What a select of 1 or 0 says; true without one.
bool Says(session::Connection& connection, const std::string& select) {
  return select.empty() || session::ToId(connection.Execute(select)->Get(0)) != 0;
}

bool HasTable(session::Connection& connection, const SchemaWriter& writer, std::string_view table) {
  bool found = false;
  for (const auto rows = connection.Execute(writer.Tables()); !rows->Eof(); rows->MoveNext()) {
    found = found || forms::EqualsIgnoringCase(session::ToText(rows->Get(0)), table);
  }
  return found;
}

void RefuseHalfACopy(session::Connection& connection, const SchemaWriter& writer) {
  if (HasTable(connection, writer, kCopyNotes)) {
    Refuse(
        "A practice is being copied into this database, or the copy was broken off. The same \"practice_console copy\" "
        "as before completes it.");
  }
}

int Version(session::Connection& connection, const SchemaWriter& writer) {
  RefuseHalfACopy(connection, writer);
  if (!HasTable(connection, writer, "SchemaTable")) {
    RefuseStranger();
  }
  if (!Says(connection, writer.MayOpen())) {
    Refuse(
        "This login may not work in the practice yet. Please have the administrator of the database admit it, by "
        "\"practice_console roles\".");
  }
  const auto schema = connection.Execute("SELECT SchVersion FROM SchemaTable");
  return schema->Eof() ? 0 : session::ToId(schema->Get(0));
}

void Lock(session::Connection& connection, const SchemaWriter& writer) {
  if (const std::string lock = writer.Lock(); !lock.empty()) {
    connection.Execute(lock);
  }
}

void CheckMayChange(session::Connection& connection, const SchemaWriter& writer) {
  if (connection.ReadOnly()) {
    Refuse(
        "It was made by an older version of the program, and is protected against writing, so that it cannot be "
        "brought up to date.");
  }
  if (const std::string select = writer.Hindrance(); !select.empty()) {
    const std::string hindrance = session::ToText(connection.Execute(select)->Get(0));
    if (!hindrance.empty()) {
      Refuse("It was made by an older version of the program, and " + hindrance);
    }
  }
}

// A login that may not enter the practice's first office starts in another one.
void StartInOpenOffice(session::Connection& connection, const SchemaWriter& writer, CreationOptions& options) {
  if (options.kind != 7 || writer.OpenOffices().empty()) {
    return;
  }
  std::vector<int> open;
  for (const auto rows = connection.Execute(writer.OpenOffices()); !rows->Eof(); rows->MoveNext()) {
    open.push_back(session::ToId(rows->Get(0)));
  }
  if (!open.empty() && std::ranges::find(open, options.office) == open.end()) {
    options.office = open.front();
  }
}

}  // namespace

CreationOptions ReadOptions(session::Connection& connection) {
  const auto row = connection.Execute("SELECT SchKind, SchOffice, SchOffices, SchRowGuids FROM SchemaTable");
  if (row->Eof()) {
    RefuseStranger();
  }
  return {.kind = session::ToId(row->Get(0)),
          .office = session::ToId(row->Get(1)),
          .offices = session::ToId(row->Get(2)),
          .row_guids = session::ToId(row->Get(3)) != 0};
}

bool IsEmpty(session::Connection& connection, const SchemaWriter& writer) {
  return connection.Execute(writer.Tables())->Eof();
}

bool MayWrite(session::Connection& connection, const SchemaWriter& writer) {
  return Says(connection, writer.MayWrite());
}

void CreateSchema(session::Connection& connection, const SchemaWriter& writer, const CreationOptions& options,
                  int version) {
  Lock(connection, writer);
  if (!IsEmpty(connection, writer)) {
    RefuseHalfACopy(connection, writer);
    Refuse("This database is in use already; a practice can only be made in an empty one.");
  }
  RunAll(connection, writer.Ground());
  connection.Execute(
      "CREATE TABLE SchemaTable (SchVersion int, SchKind int, SchOffice int, SchOffices int, SchRowGuids smallint)");
  connection.Execute("INSERT INTO SchemaTable VALUES (" + std::to_string(version) + ", " +
                     std::to_string(options.kind) + ", " + std::to_string(options.office) + ", " +
                     std::to_string(options.offices) + ", " + (options.row_guids ? "1)" : "0)"));
  Upgrade(connection, writer, options, 0, version);
}

CreationOptions MigrateSchema(session::Connection& connection, const SchemaWriter& writer) {
  const int found = Version(connection, writer);
  if (found < kSchemaVersion) {
    CheckMayChange(connection, writer);
  }
  if (found != kSchemaVersion) {
    session::Transaction transaction(connection);
    Lock(connection, writer);
    // Another program may have brought it up to date in the meantime.
    const int version = Version(connection, writer);
    if (version > kSchemaVersion) {
      Refuse("This practice database was made by a newer version of the program (its version is " +
             std::to_string(version) + ", this program knows versions up to " + std::to_string(kSchemaVersion) +
             "). Please update the program.");
    }
    Upgrade(connection, writer, ReadOptions(connection), version, kSchemaVersion);
    connection.Execute("UPDATE SchemaTable SET SchVersion=" + std::to_string(kSchemaVersion));
    transaction.Commit();
  }
  CreationOptions options = ReadOptions(connection);
  StartInOpenOffice(connection, writer, options);
  return options;
}

}  // namespace host
