#include "database/sqlite/sqlite_schema.h"

#include <algorithm>
#include <iterator>

namespace host {
namespace {

// A random GUID as `session::ToText` writes it.
constexpr std::string_view kNewGuid =
    "('{' || hex(randomblob(4)) || '-' || hex(randomblob(2)) || '-4' || substr(hex(randomblob(2)), 2) || '-' || "
    "substr('89AB', 1 + (random() & 3), 1) || substr(hex(randomblob(2)), 2) || '-' || hex(randomblob(6)) || '}')";

std::string Type(const Column& column) {
  switch (column.type) {
    case ColumnType::Int:
      return "int";
    case ColumnType::SmallInt:
      return "smallint";
    case ColumnType::Money:
      return "money";
    case ColumnType::Real:
      return "float";
    case ColumnType::Text:
      return "nvarchar(" + std::to_string(column.size) + ") COLLATE NOCASE";
    case ColumnType::Memo:
      return "ntext COLLATE NOCASE";
    case ColumnType::DateTime:
      return "datetime";
    case ColumnType::Guid:
      return "uniqueidentifier";
  }
  return {};
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
      text += Definition(column) + ", ";
    }
  }
  text += "OfficeID int NOT NULL DEFAULT " + std::to_string(options.office);
  if (options.row_guids && table.row_guid) {
    text += ", " + Definition({.name = "UniqueID", .type = ColumnType::Guid, .default_value = kNewGuid});
  }
  return text + ")";
}

std::string IndexOf(const Table& table, const Index& index) {
  const std::string expression = IndexedExpression(index);
  // Statements name the office only where there are several, so it stands last.
  std::string text = std::string("CREATE ") + (index.unique ? "UNIQUE " : "") + "INDEX " + IndexName(table, index) +
                     " ON " + std::string(table.name) + " (" +
                     (expression.empty() ? std::string(index.columns) : expression) + ", OfficeID)";
  if (!index.where.empty()) {
    text += " WHERE " + std::string(index.where);
  }
  return text;
}

// Hands out a key to a row that has none, and takes note of the keys that rows bring along.
std::vector<std::string> KeyTriggers(const Table& table) {
  const std::string name(table.name);
  const std::string key(table.key);
  const std::string counter = " WHERE TableName='" + name + "'";
  return {
      "CREATE TRIGGER " + name + "NewKey AFTER INSERT ON " + name + " WHEN NEW." + key +
          " IS NULL BEGIN UPDATE IdentityTable SET LastID=LastID+1" + counter + "; UPDATE " + name + " SET " + key +
          "=(SELECT LastID FROM IdentityTable" + counter + ") WHERE rowid=NEW.rowid; END",
      "CREATE TRIGGER " + name + "GivenKey AFTER INSERT ON " + name + " WHEN NEW." + key +
          " IS NOT NULL BEGIN UPDATE IdentityTable SET LastID=NEW." + key + counter + " AND LastID<NEW." + key +
          " AND NEW." + key + "<=" + std::to_string(kLastFollowedKey) + "; END",
  };
}

}  // namespace

std::string SqliteSchema::Tables() const {
  return "SELECT name FROM sqlite_schema WHERE type='table' AND name NOT LIKE 'sqlite_%'";
}

std::vector<std::string> SqliteSchema::Ground() const {
  return {"CREATE TABLE IdentityTable (TableName nvarchar(40) COLLATE NOCASE PRIMARY KEY, LastID int)"};
}

std::vector<std::string> SqliteSchema::CreateTable(const Table& table, const CreationOptions& options,
                                                   int version) const {
  // Keys are unique within an office.
  std::vector<std::string> statements{
      TableOf(table, options, version), IndexOf(table, {.columns = table.key, .unique = true}),
      "INSERT INTO IdentityTable (TableName, LastID) VALUES ('" + std::string(table.name) + "', 0)"};
  std::ranges::move(KeyTriggers(table), std::back_inserter(statements));
  return statements;
}

std::vector<std::string> SqliteSchema::AddColumn(const Table& table, const Column& column) const {
  return {"ALTER TABLE " + std::string(table.name) + " ADD COLUMN " + Definition(column)};
}

std::vector<std::string> SqliteSchema::CreateIndex(const Table& table, const Index& index) const {
  return {IndexOf(table, index)};
}

std::vector<std::string> SqliteSchema::DropTable(std::string_view table) const {
  const std::string name(table);
  return {"DROP TABLE IF EXISTS " + name, "DELETE FROM IdentityTable WHERE TableName='" + name + "'"};
}

std::string SqliteSchema::LastKey(const Table& table) const {
  return "SELECT LastID FROM IdentityTable WHERE TableName='" + std::string(table.name) + "'";
}

std::vector<std::string> SqliteSchema::RaiseKeys(const Table& table, std::int32_t last) const {
  const std::string number = std::to_string(std::min(last, kLastFollowedKey));
  return {"UPDATE IdentityTable SET LastID=" + number + " WHERE TableName='" + std::string(table.name) +
          "' AND LastID<" + number};
}

}  // namespace host
