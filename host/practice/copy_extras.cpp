#include "practice/copy_extras.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>

#include "data/literal.h"
#include "forms/text.h"
#include "practice/copied_table.h"

namespace host {
namespace {

constexpr std::string_view kBackup = "RSTableBackup";
constexpr std::string_view kOffice = "OfficeID";
// What the host keeps for itself is made anew.
constexpr std::array<std::string_view, 3> kOwn = {"SchemaTable", "IdentityTable", "DeskTable"};

bool IsOneOf(const auto& names, std::string_view name) {
  return std::ranges::any_of(names, [&](std::string_view known) { return forms::EqualsIgnoringCase(known, name); });
}

std::set<std::string> TablesOf(const PracticeDatabase& database) {
  std::set<std::string> tables;
  for (const auto rows = database.connection->Execute(database.schema->Tables()); !rows->Eof(); rows->MoveNext()) {
    tables.insert(session::ToText(rows->Get(0)));
  }
  return tables;
}

// Of a column as the recalls have it; the office where it is none of theirs.
Column BackedUp(std::string_view name) {
  const Column* column = FindColumn(*FindTable("RSTable"), name);
  return column == nullptr ? Column{.name = kOffice} : *column;
}

bool IsBackedUp(std::string_view name) {
  return forms::EqualsIgnoringCase(name, kOffice) || FindColumn(*FindTable("RSTable"), name) != nullptr;
}

std::string TypeOf(const Column& column) {
  switch (column.type) {
    case ColumnType::Text:
      return " nvarchar(" + std::to_string(column.size) + ")";
    case ColumnType::SmallInt:
      return " smallint";
    default:
      return " int";
  }
}

// Of those that a copy takes along.
bool HasColumn(const Table& table, const CreationOptions& options, std::string_view name) {
  const CopiedTable copied(table, options);
  return std::ranges::any_of(copied.Columns(),
                             [&](const Column& column) { return forms::EqualsIgnoringCase(column.name, name); });
}

}  // namespace

void CopyRecallBackup(const PracticeDatabase& source, const PracticeDatabase& target,
                      std::optional<std::int32_t> office) {
  const std::string table(kBackup);
  if (!IsOneOf(TablesOf(source), kBackup)) {
    return;
  }
  const auto rows = source.Run("SELECT * FROM " + table + (office ? " WHERE OfficeID=" + std::to_string(*office) : ""));
  std::string names;
  std::string definitions;
  for (const session::Field& field : rows->Fields()) {
    if (IsBackedUp(field.name)) {
      const std::string comma = names.empty() ? "" : ", ";
      const Column column = BackedUp(field.name);
      names += comma + std::string(column.name);
      definitions += comma + std::string(column.name) + TypeOf(column);
    }
  }
  for (bool made = false; !rows->Eof(); rows->MoveNext(), made = true) {
    if (!made) {
      // As the screen says it.
      target.Run("if not exists (select * from INFORMATION_SCHEMA.TABLES where TABLE_NAME='" + table +
                 "') create table " + table + " (" + definitions + ")");
    }
    std::string values;
    for (std::size_t i = 0; i < rows->Fields().size(); ++i) {
      const std::string& name = rows->Fields()[i].name;
      if (IsBackedUp(name)) {
        values +=
            (values.empty() ? "" : ", ") + data::ValueLiteral(CopiedValue(BackedUp(name).type, rows->Get(i))).Text();
      }
    }
    target.Run("INSERT INTO " + table + " (" + names + ") VALUES (" + values + ")");
  }
}

std::vector<std::string> LeftBehind(const PracticeDatabase& source) {
  std::vector<std::string> left;
  const auto columns_left = [&](const std::string& table, const auto& is_taken) {
    const auto none = source.Run("SELECT * FROM " + table + " WHERE 1=0");
    for (const session::Field& field : none->Fields()) {
      if (!is_taken(field.name)) {
        left.push_back(table + "." + field.name);
      }
    }
  };
  for (const std::string& name : TablesOf(source)) {
    if (forms::EqualsIgnoringCase(name, kBackup)) {
      columns_left(std::string(kBackup), IsBackedUp);
    } else if (const Table* known = FindTable(name)) {
      columns_left(std::string(known->name),
                   [&](std::string_view column) { return HasColumn(*known, source.options, column); });
    } else if (!IsOneOf(kOwn, name)) {
      left.push_back(name);
    }
  }
  return left;
}

}  // namespace host
