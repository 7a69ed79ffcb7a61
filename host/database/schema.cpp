#include "database/schema.h"

#include <unordered_set>

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

std::unordered_set<std::string> TextColumns() {
  std::unordered_set<std::string> names;
  for (const Table& table : PracticeTables()) {
    for (const Column& column : table.columns) {
      if (column.type == ColumnType::Text || column.type == ColumnType::Memo) {
        names.insert(forms::ToLower(column.name));
      }
    }
  }
  return names;
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

bool IsTextColumn(std::string_view name) {
  static const std::unordered_set<std::string> names = TextColumns();
  return names.contains(forms::ToLower(name));
}

}  // namespace host
