#include "database/sqlite/sqlite_connection.h"

#include <filesystem>
#include <fstream>
#include <functional>

#include "database/database.h"

namespace host {
namespace {

using session::ToText;

class TemporaryFile {
 public:
  TemporaryFile() : folder_(std::filesystem::temp_directory_path() / Name()) {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directory(folder_);
  }
  ~TemporaryFile() { std::filesystem::remove_all(folder_); }
  std::string Path() const { return (folder_ / "practice.db").string(); }
  std::string Url() const { return "sqlite:" + Path(); }

 private:
  static std::string Name() {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    return std::string("host_database_") + test->test_suite_name() + test->name();
  }
  std::filesystem::path folder_;
};

// What the failure says; empty without one.
std::string Refusal(const std::function<void()>& work) {
  try {
    work();
    return {};
  } catch (const session::DatabaseError& error) {
    return error.what();
  }
}

TEST(SqliteConnection, SearchesUseIndexes) {
  const auto practice = CreateDatabase("sqlite::memory:", {.kind = 7});
  const auto plan = [&](const std::string& select) {
    const auto rows = practice.connection->Execute("EXPLAIN QUERY PLAN " + practice.prepare(select));
    return ToText(rows->Get(3));
  };
  for (const auto& [select, index] : std::vector<std::pair<std::string, std::string>>{
           {"SELECT * FROM PATable WHERE pLASNAM Like 'Smi%' and pFIRNAM Like 'J%' order by pLasNam, pFirNam",
            "PATable_pLASNAM_pFIRNAM"},
           {"SELECT * FROM PATable WHERE pLASNAM Like 'Smi[%]%' AND (OfficeID=1)", "PATable_pLASNAM_pFIRNAM"},
           {"SELECT * FROM PATable WHERE pID=5", "PATable_pID"},
           {"SELECT * FROM PATable WHERE pTypRef='1'", "PATable_pTypRef"},
           {"Select Top 200 * from ZipCodTable where ZipCodCit>='Spr' order by ZipCodCit,ZipCodZip",
            "ZipCodTable_ZipCodCit_ZipCodZip"},
           {"SELECT * FROM IPTable WHERE (IPInsCoID = 3 and IPGroNum = '77')", "IPTable_IPInsCoID"}}) {
    EXPECT_THAT(plan(select), testing::HasSubstr("USING INDEX " + index)) << select;
  }
}

TEST(SqliteConnection, ProtectedFileIsOnlyRead) {
  const TemporaryFile file;
  CreateDatabase(file.Url()).Run("INSERT INTO EmpTable (EmpNam) VALUES ('a')");
  using std::filesystem::perms;
  std::filesystem::permissions(file.Path(), perms::owner_read);
  const auto practice = OpenDatabase(file.Url());
  EXPECT_TRUE(practice.connection->ReadOnly());
  EXPECT_EQ(ToText(practice.Run("SELECT EmpNam FROM EmpTable")->Get(0)), "a");
  EXPECT_THAT(Refusal([&] { practice.Run("UPDATE EmpTable SET EmpNam='x'"); }),
              testing::HasSubstr("protected against writing"));
  std::filesystem::permissions(file.Path(), perms::owner_read | perms::owner_write);
  OpenDatabase(file.Url()).connection->Execute("UPDATE SchemaTable SET SchVersion=3");
  std::filesystem::permissions(file.Path(), perms::owner_read);
  EXPECT_THAT(Refusal([&] { OpenDatabase(file.Url()); }), testing::HasSubstr("older version"));
}

TEST(SqliteConnection, WhatCannotBeOpenedIsNamed) {
  const TemporaryFile file;
  const auto refusal = [&](const std::string& beside) { return Refusal([&] { OpenDatabase(file.Url() + beside); }); };
  EXPECT_THAT(refusal(""), testing::AllOf(testing::HasSubstr(file.Path()), testing::HasSubstr("no such file")));
  EXPECT_THAT(refusal("/there/a.db"), testing::HasSubstr("no such folder"));
  EXPECT_THAT(refusal("/.."), testing::HasSubstr("no such folder"));
  std::ofstream(file.Path()) << std::string(5000, 'x');
  EXPECT_THAT(refusal(""), testing::AllOf(testing::HasSubstr(file.Path()), testing::HasSubstr("damaged")));
  std::filesystem::remove(file.Path());
  CreateDatabase(file.Url());
  std::filesystem::permissions(file.Path() + "-locks", std::filesystem::perms::owner_read);
  EXPECT_THAT(refusal(""), testing::AllOf(testing::HasSubstr("-locks"), testing::HasSubstr("protected")));
}

TEST(SqliteConnection, TextOfAnotherProgramIsReadAsLatin1) {
  const auto practice = CreateDatabase("sqlite::memory:");
  practice.connection->Execute(
      "INSERT INTO PATable (pLASNAM, pFIRNAM, pNICNAM) VALUES (CAST(x'4DFC6C6C6572' AS TEXT), x'416EEF', 'Zoë')");
  const auto row = practice.Run("SELECT pLASNAM, pFIRNAM, pNICNAM FROM PATable");
  EXPECT_EQ(ToText(row->Get(0)), "Müller");
  EXPECT_EQ(ToText(row->Get(1)), "Anï");
  EXPECT_EQ(ToText(row->Get(2)), "Zoë");
}

TEST(SqliteConnection, WaitForAnotherProgramCanBeGivenUp) {
  const TemporaryFile file;
  const auto here = CreateDatabase(file.Url());
  const auto there = OpenDatabase(file.Url());
  const std::string insert = "INSERT INTO EmpTable (EmpNam) VALUES ('a')";
  std::vector<session::Busy> heard;
  auto other = std::make_optional<session::Transaction>(*there.connection);
  here.connection->WhileBusy = [&](session::Busy busy) {
    heard.push_back(busy);
    return true;
  };
  EXPECT_THAT(Refusal([&] { here.Run(insert); }), testing::HasSubstr("wait for it was ended"));
  EXPECT_THAT(Refusal([&] { session::Transaction mine(*here.connection); }), testing::HasSubstr("Another program"));
  using session::Busy;
  EXPECT_THAT(heard, testing::ElementsAre(Busy::Waiting, Busy::Done, Busy::Waiting, Busy::Done));
  here.connection->WhileBusy = [&](Busy) {
    other.reset();  // done in the meantime
    return false;
  };
  EXPECT_NO_THROW(here.Run(insert));
}

}  // namespace
}  // namespace host
