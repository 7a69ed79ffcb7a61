#include "database/migration.h"

#include <filesystem>
#include <set>

#include "database/database.h"
#include "database/sqlite/sqlite_connection.h"
#include "database/sqlite/sqlite_schema.h"
#include "forms/text.h"

namespace host {
namespace {

using session::DatabaseError;
using session::ToId;

const SqliteSchema kSchema;

// Indexes and triggers, and the columns of tables, in whichever order.
std::set<std::string> Objects(session::Connection& connection) {
  std::set<std::string> objects;
  for (const char* all : {"SELECT coalesce(sql, name) FROM sqlite_schema WHERE type<>'table'",
                          "SELECT t.name || ' ' || c.name || ' ' || c.type || ' ' || coalesce(c.dflt_value, '') "
                          "FROM sqlite_schema t, pragma_table_info(t.name) c"}) {
    for (const auto rows = connection.Execute(all); !rows->Eof(); rows->MoveNext()) {
      objects.insert(session::ToText(rows->Get(0)));
    }
  }
  return objects;
}

TEST(Migration, OlderDatabaseBecomesLikeANewOne) {
  SqliteConnection old(":memory:");
  const CreationOptions options{.kind = 7, .office = 3, .offices = 4, .row_guids = true};
  CreateSchema(old, kSchema, options, 1);
  old.Execute("INSERT INTO ZipCodTable (ZipCodCit) VALUES ('Boston')");
  old.Execute("INSERT INTO PWMTable (PWMUseNam) VALUES ('ann'), ('bob'), ('ANN')");
  old.Execute("CREATE TABLE RecordLockTable (RLID int)");
  EXPECT_THROW(old.Execute("SELECT * FROM PickListTable"), DatabaseError);
  const CreationOptions kept = MigrateSchema(old, kSchema);
  EXPECT_EQ(kept.kind, 7);
  EXPECT_EQ(kept.offices, 4);
  EXPECT_TRUE(kept.row_guids);
  EXPECT_EQ(ToId(old.Execute("SELECT OfficeID FROM ZipCodTable WHERE ZipCodID=1")->Get(0)), 3);
  EXPECT_EQ(ToId(old.Execute("SELECT PWMNamesake FROM PWMTable WHERE PWMID=3")->Get(0)), 1);
  SqliteConnection fresh(":memory:");
  CreateSchema(fresh, kSchema, options);
  EXPECT_EQ(Objects(old), Objects(fresh));
  MigrateSchema(old, kSchema);
  EXPECT_EQ(Objects(old), Objects(fresh));
}

TEST(Migration, FailingHalfwayLeavesTheOldVersion) {
  SqliteConnection old(":memory:");
  CreateSchema(old, kSchema, {}, 1);
  old.Execute("CREATE TABLE PickListTable (stranger int)");
  const auto before = Objects(old);
  EXPECT_THROW(MigrateSchema(old, kSchema), DatabaseError);
  EXPECT_EQ(Objects(old), before);
  EXPECT_EQ(ToId(old.Execute("SELECT SchVersion FROM SchemaTable")->Get(0)), 1);
}

TEST(Migration, NewerAndStrangeDatabasesAreRefused) {
  SqliteConnection newer(":memory:");
  CreateSchema(newer, kSchema, {});
  EXPECT_THROW(CreateSchema(newer, kSchema, {}), DatabaseError);
  newer.Execute("UPDATE SchemaTable SET SchVersion=99");
  try {
    MigrateSchema(newer, kSchema);
    FAIL();
  } catch (const DatabaseError& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("newer version"));
  }
  SqliteConnection strange(":memory:");
  strange.Execute("CREATE TABLE Songs (title)");
  EXPECT_THROW(MigrateSchema(strange, kSchema), DatabaseError);
  SqliteConnection unfinished(":memory:");
  CreateSchema(unfinished, kSchema, {});
  unfinished.Execute("DELETE FROM SchemaTable");
  EXPECT_THROW(MigrateSchema(unfinished, kSchema), DatabaseError);
}

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
  EXPECT_THAT(message("practice.db"), testing::HasSubstr("is no database URL"));
  EXPECT_THAT(message("sqlite:no/such/folder/practice.db"), testing::HasSubstr("no/such/folder/practice.db"));
}

}  // namespace
}  // namespace host
