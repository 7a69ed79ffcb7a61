#include "database/schema.h"

#include <algorithm>
#include <unordered_map>

#include "database/tables.h"
#include "forms/text.h"

namespace host {
namespace {

std::vector<Table> MakeTables() {
  std::vector<Table> all;
  for (auto part :
       {tables::People(), tables::Staff(), tables::Insurance(), tables::Recall(), tables::Office(), tables::Host()}) {
    all.insert(all.end(), part.begin(), part.end());
  }
  return all;
}

// By their names in lower case.
std::unordered_map<std::string, const Column*> MakeColumns() {
  std::unordered_map<std::string, const Column*> known;
  for (const Table& table : PracticeTables()) {
    for (const Column& column : table.columns) {
      known.emplace(forms::ToLower(column.name), &column);
    }
  }
  return known;
}

const Column* AnyColumn(std::string_view name) {
  static const std::unordered_map<std::string, const Column*> columns = MakeColumns();
  const auto found = columns.find(forms::ToLower(name));
  return found == columns.end() ? nullptr : found->second;
}

}  // namespace

const std::vector<Table>& PracticeTables() {
  static const std::vector<Table> tables = MakeTables();
  return tables;
}

const Table* FindTable(std::string_view name) {
  for (const Table& table : PracticeTables()) {
    if (forms::EqualsIgnoringCase(table.name, name)) {
      return &table;
    }
  }
  return nullptr;
}

const Column* FindColumn(const Table& table, std::string_view name) {
  const auto found = std::ranges::find_if(
      table.columns, [&](const Column& column) { return forms::EqualsIgnoringCase(column.name, name); });
  return found == table.columns.end() ? nullptr : &*found;
}

std::string InCapitals(std::string_view name) {
  for (const std::string_view of_every_table : {"OfficeID", "UniqueID"}) {
    if (forms::EqualsIgnoringCase(name, of_every_table)) {
      return std::string(of_every_table);
    }
  }
  const Column* column = AnyColumn(name);
  return std::string(column == nullptr ? name : column->name);
}

std::optional<ColumnType> TypeOfColumn(std::string_view name) {
  if (forms::EqualsIgnoringCase(name, "OfficeID")) {
    return ColumnType::Int;
  }
  if (forms::EqualsIgnoringCase(name, "UniqueID")) {
    return ColumnType::Guid;
  }
  const Column* column = AnyColumn(name);
  return column == nullptr ? std::nullopt : std::optional(column->type);
}

}  // namespace host
