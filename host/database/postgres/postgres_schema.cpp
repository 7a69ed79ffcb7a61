#include "database/postgres/postgres_schema.h"

#include <algorithm>

#include "database/dialect/postgres_statements.h"
#include "database/postgres/postgres_change_log.h"
#include "database/postgres/postgres_ground.h"
#include "database/postgres/postgres_roles.h"
#include "forms/text.h"

namespace host {
namespace {

std::string Type(const Column& column) {
  const std::string type(sql::PostgresType(column.type));
  return column.type == ColumnType::Text
             ? type + " CHECK (length(" + std::string(column.name) + ") <= " + std::to_string(column.size) + ")"
             : type;
}

std::string Definition(const Column& column) {
  std::string text = std::string(column.name) + " " + Type(column);
  if (!column.default_value.empty()) {
    text += " DEFAULT " + std::string(column.default_value);
  }
  return text;
}

std::string TableOf(const Table& table, const CreationOptions& options, int version) {
  std::string text = "CREATE TABLE " + std::string(table.name) + " (";
  for (const Column& column : table.columns) {
    if (column.since <= version) {
      text += (column.name == table.key ? std::string(column.name) + " serial" : Definition(column)) + ", ";
    }
  }
  text += "OfficeID int NOT NULL DEFAULT " + std::to_string(options.office);
  if (options.row_guids && table.row_guid) {
    text += ", UniqueID uuid DEFAULT gen_random_uuid()";
  }
  return text + ")";
}

// What hands out the keys of a table.
std::string SequenceOf(const Table& table) {
  return forms::ToLower(std::string(table.name) + "_" + std::string(table.key)) + "_seq";
}

// Null comes first in every order of the screens' statements, so it does in the indexes.
std::string IndexOf(const Table& table, const Index& index) {
  std::string columns = IndexedExpression(index);
  if (columns.empty()) {
    for (const char c : index.columns) {
      columns += c == ',' ? std::string(" NULLS FIRST,") : std::string(1, c);
    }
  }
  // Statements name the office only where there are several, so it stands last.
  std::string text = std::string("CREATE ") + (index.unique ? "UNIQUE " : "") + "INDEX " + IndexName(table, index) +
                     " ON " + std::string(table.name) + " (" + columns + " NULLS FIRST, OfficeID)";
  if (!index.where.empty()) {
    text += " WHERE " + std::string(index.where);
  }
  return text;
}

}  // namespace

std::string PostgresSchema::Lock() const {
  return "SELECT pg_advisory_xact_lock(hashtext('practice schema'))";
}

// The tables of a group's offices are parts of others, until the group is brought up to date.
std::string PostgresSchema::Hindrance() const {
  return "SELECT CASE WHEN to_regclass('practice.officegroup') IS NOT NULL AND (current_schema() = 'practice' OR "
         "EXISTS (SELECT FROM pg_class WHERE relnamespace = current_schema()::regnamespace AND (relispartition OR "
         "relkind = 'p'))) THEN 'belongs to a group of practices. Please have the administrator run "
         "\"practice_console offices migrate\" of this version.' "
         "WHEN NOT pg_has_role(relowner, 'USAGE') THEN 'this login may not change its tables. Please have the "
         "administrator of the database open it once with this version.' END "
         "FROM pg_class WHERE oid = 'SchemaTable'::regclass";
}

std::string PostgresSchema::MayOpen() const {
  return "SELECT coalesce(has_table_privilege(to_regclass('SchemaTable'), 'SELECT'), false)::int";
}

std::string PostgresSchema::MayWrite() const {
  return "SELECT coalesce(bool_or(has_table_privilege(oid, 'INSERT, UPDATE, DELETE')), true)::int FROM pg_class "
         "WHERE relname = 'patable' AND relkind IN ('r', 'p')";
}

std::string PostgresSchema::OpenOffices() const {
  return "SELECT unnest(practice.open_offices()) ORDER BY 1";
}

std::string PostgresSchema::Tables() const {
  return "SELECT c.relname AS name FROM pg_catalog.pg_class c JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace "
         "WHERE c.relkind IN ('r', 'p', 'f') AND n.nspname <> 'information_schema' AND n.nspname NOT LIKE 'pg\\_%'";
}

std::vector<std::string> PostgresSchema::Ground() const {
  return PostgresGround();
}

std::vector<std::string> PostgresSchema::CreateTable(const Table& table, const CreationOptions& options,
                                                     int version) const {
  const std::string name(table.name);
  const std::string key(table.key);
  const std::string arguments = "('" + forms::ToLower(key) + "', '" + SequenceOf(table) + "')";
  // Keys are unique within an office. What triggers write is no row that the session inserted.
  return {TableOf(table, options, version), IndexOf(table, {.columns = table.key, .unique = true}),
          "CREATE TRIGGER " + name + "_give_key BEFORE INSERT ON " + name + " FOR EACH ROW WHEN (NEW." + key +
              " IS NULL) EXECUTE FUNCTION practice.give_key" + arguments,
          "CREATE TRIGGER " + name + "_note_keys AFTER INSERT ON " + name +
              " REFERENCING NEW TABLE AS added FOR EACH STATEMENT WHEN (pg_trigger_depth() = 0) "
              "EXECUTE FUNCTION practice.note_keys" +
              arguments};
}

std::vector<std::string> PostgresSchema::AddColumn(const Table& table, const Column& column) const {
  return {"ALTER TABLE " + std::string(table.name) + " ADD COLUMN " + Definition(column)};
}

std::vector<std::string> PostgresSchema::CreateIndex(const Table& table, const Index& index) const {
  return {IndexOf(table, index)};
}

std::vector<std::string> PostgresSchema::DropTable(std::string_view table) const {
  return {"DROP TABLE IF EXISTS " + std::string(table)};
}

std::vector<std::string> PostgresSchema::LogChanges(const Table& table, int version) const {
  return PostgresChangeLog(table, version);
}

std::vector<std::string> PostgresSchema::Finish() const {
  return {std::string(kAdmitDesks)};
}

std::string PostgresSchema::LastKey(const Table& table) const {
  return "SELECT CASE WHEN is_called THEN last_value ELSE last_value - 1 END FROM " + SequenceOf(table);
}

std::vector<std::string> PostgresSchema::RaiseKeys(const Table& table, std::int32_t last) const {
  const std::string number = std::to_string(std::min(last, kLastFollowedKey));
  return {"SELECT setval('" + SequenceOf(table) + "', " + number + ") WHERE " + number + " > (" + LastKey(table) + ")"};
}

}  // namespace host
