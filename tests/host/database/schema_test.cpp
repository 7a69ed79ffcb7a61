#include "database/schema.h"

#include <map>
#include <set>

#include "database/database.h"
#include "forms/text.h"

namespace host {
namespace {

using session::DatabaseError;

TEST(Schema, NamesAreUnambiguous) {
  std::set<std::string> tables;
  std::map<std::string, bool> text;  // whether a column of the name holds text
  for (const Table& table : PracticeTables()) {
    EXPECT_TRUE(tables.insert(forms::ToLower(table.name)).second) << table.name;
    EXPECT_EQ(table.columns.at(0).name, table.key);
    for (const Column& column : table.columns) {
      const bool is_text = column.type == ColumnType::Text || column.type == ColumnType::Memo;
      EXPECT_EQ(text.try_emplace(forms::ToLower(column.name), is_text).first->second, is_text) << column.name;
    }
  }
}

TEST(Database, UrlsNameEngineAndFile) {
  const auto message = [](const std::string& url) {
    try {
      OpenDatabase(url);
    } catch (const DatabaseError& error) {
      return std::string(error.what());
    }
    return std::string();
  };
  EXPECT_THAT(message("postgresql:///practice?host=/no/such/folder"),
              testing::HasSubstr("\"practice\" on /no/such/folder"));
  EXPECT_THAT(message("practice.db"),
              testing::HasSubstr(": sqlite:PATH, postgresql://... or odbc:CONNECTION-STRING is expected."));
  EXPECT_THAT(message("sqlite:no/such/folder/practice.db"), testing::HasSubstr("no/such/folder/practice.db"));
}

}  // namespace
}  // namespace host
