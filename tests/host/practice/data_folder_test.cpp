#include "practice/data_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using host::DataFolderOf;

TEST(DataFolder, LiesBesideAFile) {
  const auto here = std::filesystem::current_path().u8string();
  EXPECT_EQ(DataFolderOf("sqlite:practice.db", "/own"), std::string(here.begin(), here.end()));
  EXPECT_EQ(DataFolderOf("sqlite:/data/practice.db", "/own"), "/data");
  EXPECT_EQ(DataFolderOf("sqlite::memory:", "/own"), "/own");
  EXPECT_EQ(DataFolderOf("", "/own"), "/own");
}

TEST(DataFolder, IsNamedAfterServerAndDatabaseAndNothingElse) {
  EXPECT_EQ(DataFolderOf("postgresql://ada:se/cret@db.example:5432/practice?sslmode=require", "/own"),
            "/own/db.example_5432_practice");
  EXPECT_EQ(DataFolderOf("postgresql://db.example:5432/practice", "/own"), "/own/db.example_5432_practice");
  EXPECT_EQ(DataFolderOf("postgresql://ada@/practice?host=/run/pg&port=1", "/own"), "/own/run_pg_practice");
  EXPECT_EQ(DataFolderOf("odbc:DSN=practice;UID=ada;PWD=secret", "/own"), "/own/practice");
  EXPECT_EQ(DataFolderOf("odbc:Driver={PostgreSQL Unicode};server=db.example;PWD={a;DSN=x};Database=practice", "/own"),
            "/own/db.example_practice");
  EXPECT_EQ(DataFolderOf("postgresql:///../..", "/own"), "/own/practice.._..");
}

}  // namespace
