#include "database/sqlite/sqlite_connection.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>

#include "database/database.h"

namespace host {
namespace {

using session::ToId;
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

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) {
    quoted.append(c == '\'' ? 2 : 1, c);
  }
  return quoted + "'";
}

// What the failure says; empty without one.
std::string Refusal(const std::function<void()>& work) {
  try {
    work();
    return {};
  } catch (const session::DatabaseError& error) {
    return error.what();
  }
}

TEST(SqliteConnection, HostileTextComesBackAsTyped) {
  const auto practice = CreateDatabase("sqlite::memory:");
  for (const std::string& text :
       {std::string("'; DROP TABLE PATable; --"), std::string("100% [x] _ \\ \"q\" #1/2/1980# @@IDENTITY TOP 5"),
        std::string("line\r\nbreak\ttab"), std::string("Ærø \u65E5\u672C \U0001F9B7 e\u0301"),
        std::string("nul\0inside", 10), std::string(10000, '\''), std::string("")}) {
    practice.Run("DELETE * FROM NoteTable");
    practice.Run("INSERT INTO NoteTable (nNote) VALUES (" + Quoted(text) + ")");
    const auto rows = practice.Run("SELECT nNote FROM NoteTable WHERE nNote=" + Quoted(text));
    ASSERT_FALSE(rows->Eof()) << text;
    EXPECT_EQ(ToText(rows->Get(0)), text);
  }
}

TEST(SqliteConnection, TextComparesWithoutRegardToCase) {
  const auto practice = CreateDatabase("sqlite::memory:");
  practice.Run(
      "INSERT INTO PATable (pLASNAM, pFIRNAM) VALUES ('Müller-Łoś', 'ÉVA'); "
      "INSERT INTO PATable (pLASNAM) VALUES ('Mc%Coy')");
  for (const std::string condition : {"pLASNAM='MÜLLER-ŁOŚ'", "pLASNAM Like 'mÜ%'", "pLASNAM Like '%łOŚ'",
                                      "pLASNAM Like '_ü[k-m]%[ś]'", "pLASNAM not Like 'ä%' and pLASNAM<>'mc%coy'",
                                      "pLASNAM+', '+pFIRNAM='MÜLLER-ŁOŚ, éva'", "pFIRNAM>='év' and pFIRNAM<'Évb'"}) {
    const auto rows = practice.Run("SELECT pID FROM PATable WHERE " + condition);
    ASSERT_FALSE(rows->Eof()) << condition;
    EXPECT_EQ(ToId(rows->Get(0)), 1);
  }
  const auto literal = practice.Run("SELECT pID FROM PATable WHERE pLASNAM Like 'MC[%]c%'");
  ASSERT_FALSE(literal->Eof());
  EXPECT_EQ(ToId(literal->Get(0)), 2);
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

TEST(SqliteConnection, ValuesComeByTheirColumns) {
  const auto practice = CreateDatabase("sqlite::memory:");
  practice.Run(
      "INSERT INTO EBTable (EBDep, EBAPPDAT, EBAnnSalAmt, EBAnnVacHou) VALUES ('Desk', #11/21/2026 14:05:00#, 0.0003, "
      "1.5)");
  const auto rows =
      practice.Run("SELECT EBID, EBDep, EBAPPDAT, EBAnnSalAmt, EBAnnVacHou, EBReaCha, EBID+1 AS n FROM EBTable");
  EXPECT_EQ(rows->Get(0), session::Value(std::int64_t{1}));
  EXPECT_EQ(rows->Get(1), session::Value("Desk"));
  EXPECT_EQ(rows->Get(2), session::Value(*forms::ParseIso("2026-11-21 14:05:00")));
  EXPECT_EQ(rows->Get(3), session::Value(forms::Currency::FromTenThousandths(3)));
  EXPECT_EQ(rows->Get(4), session::Value(1.5));
  EXPECT_TRUE(session::IsNull(rows->Get(5)));
  EXPECT_EQ((*rows)["N"], session::Value(std::int64_t{2}));
  EXPECT_EQ(rows->Fields()[1].defined_size, 40);
  EXPECT_EQ(rows->Fields()[3].type, session::FieldType::Currency);
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
  EXPECT_THROW(rows->Get(0), session::DatabaseError);
}

TEST(SqliteConnection, KeysAreHandedOutOnce) {
  const auto practice = CreateDatabase("sqlite::memory:", {.kind = 7});
  const auto insert = [&](const std::string& columns, const std::string& values) {
    return ToId(
        practice.Run("INSERT INTO EmpTable (" + columns + ") VALUES (" + values + "); SELECT @@IDENTITY")->Get(0));
  };
  EXPECT_EQ(insert("EmpNam", "'a'"), 1);
  EXPECT_EQ(insert("EmpInd, OfficeID", "1, 2"), 1);  // another office may have the key too
  EXPECT_THROW(insert("EmpInd, OfficeID", "1, 2"), session::DatabaseError);
  EXPECT_EQ(insert("EmpInd", "40"), 40);
  EXPECT_EQ(insert("EmpInd, EmpNam", "Null, 'b'"), 41);
  practice.Run("DELETE * FROM EmpTable");
  EXPECT_EQ(insert("EmpNam", "'c'"), 42);
  // Asked for on its own, whatever was read or changed since.
  practice.Run("UPDATE EmpTable SET EmpNam='d'; SELECT * FROM EmpTable");
  EXPECT_EQ(ToId(practice.Run("SELECT @@IDENTITY")->Get(0)), 42);
}

TEST(SqliteConnection, FailuresNameStatementAndCode) {
  const auto practice = CreateDatabase("sqlite::memory:");
  for (const std::string statement : {"SELECT nothing FROM PATable", "SELECT * FROM PATable WHERE pID=@Unknown",
                                      "SELECT * FROM PATable WHERE pBIRDAT=#31/31/2026#", "SELECT 'open"}) {
    try {
      practice.Run(statement);
      FAIL() << statement;
    } catch (const session::DatabaseError& error) {
      EXPECT_EQ(error.Statement(), statement);
      EXPECT_NE(error.Code(), 0);
    }
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

TEST(SqliteConnection, TransactionsCommitOrRollBack) {
  const TemporaryFile file;
  const auto practice = CreateDatabase(file.Url());
  const auto count = [&] { return ToId(practice.Run("SELECT Count(*) FROM EmpTable")->Get(0)); };
  {
    session::Transaction lost(*practice.connection);
    practice.Run("INSERT INTO EmpTable (EmpNam) VALUES ('a')");
    EXPECT_EQ(count(), 1);  // seen inside
  }
  EXPECT_EQ(count(), 0);
  session::Transaction kept(*practice.connection);
  practice.Run("INSERT INTO EmpTable (EmpNam) VALUES ('b')");
  kept.Commit();
  EXPECT_EQ(ToId(OpenDatabase(file.Url()).Run("SELECT Count(*) FROM EmpTable")->Get(0)), 1);
}

TEST(SqliteConnection, HalfReadListNeitherBlocksNorAges) {
  const TemporaryFile file;
  const auto here = CreateDatabase(file.Url());
  const auto there = OpenDatabase(file.Url());
  here.Run("INSERT INTO EmpTable (EmpNam) VALUES ('a'); INSERT INTO EmpTable (EmpNam) VALUES ('b')");
  const auto list = here.Run("SELECT EmpNam FROM EmpTable ORDER BY EmpInd");
  there.Run("UPDATE EmpTable SET EmpNam='changed' WHERE EmpInd=1");
  EXPECT_EQ(ToText(here.Run("SELECT EmpNam FROM EmpTable WHERE EmpInd=1")->Get(0)), "changed");
  here.Run("UPDATE EmpTable SET EmpNam='mine' WHERE EmpInd=2");
  EXPECT_EQ(ToText(there.Run("SELECT EmpNam FROM EmpTable WHERE EmpInd=2")->Get(0)), "mine");
  list->MoveNext();
  EXPECT_EQ(ToText(list->Get(0)), "b");
}

TEST(SqliteConnection, CancelEndsTheRunningStatement) {
  const TemporaryFile file;
  const auto practice = CreateDatabase(file.Url());
  std::atomic<bool> ended = false;
  std::thread canceller([&] {
    while (!ended) {
      practice.connection->Cancel();
    }
  });
  const std::string endless =
      "SELECT Count(*) FROM (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n) SELECT i FROM n)";
  EXPECT_THROW(practice.connection->Execute(endless), session::DatabaseError);
  ended = true;
  canceller.join();
  practice.connection->WhileBusy = [](session::Busy) { return true; };  // the other way, where it runs
  EXPECT_THROW(practice.connection->Execute(endless), session::DatabaseError);
  EXPECT_FALSE(practice.Run("SELECT Count(*) FROM PATable")->Eof());
}

}  // namespace
}  // namespace host
