#include "practice/copy_practice.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <iostream>

#include "database/postgres/postgres_roles.h"
#include "database/unix/throwaway_cluster.h"
#include "host/practice/practice_fixture.h"
#include "practice/copied_table.h"
#include "practice/demo.h"
#include "support/odbc_url.h"

namespace host {
namespace {

using Step = CopyProgress::Step;
using testing::HasSubstr;

constexpr PracticeOptions kOffices{.kind = 7, .office = 2, .offices = 2, .row_guids = true};

// An empty PostgreSQL database that is gone after the test.
class ServerDatabase {
 public:
  ServerDatabase() : name_(SharedCluster().MakeDatabase("copy")) {}
  ServerDatabase(const ServerDatabase&) = delete;
  ServerDatabase& operator=(const ServerDatabase&) = delete;
  ~ServerDatabase() { SharedCluster().DropDatabase(name_); }

  const std::string& Name() const { return name_; }
  std::string Url() const { return SharedCluster().Url(name_); }

 private:
  std::string name_;
};

bool GoOn(const CopyProgress& /*progress*/) {
  return true;
}

std::string Refusal(const std::string& from, const std::string& to) {
  try {
    CopyPractice(from, to, GoOn);
  } catch (const session::DatabaseError& error) {
    return error.what();
  }
  return {};
}

// With some of the many places alone.
void MakeSmallDemo(const std::string& url, const PracticeOptions& options = kOffices) {
  const Practice practice =
      MakeDemo(url, {.patients = 25, .seed = 3, .practice = options, .password_cost = HashCost::Least});
  practice.Database().Run("DELETE FROM ZipCodTable WHERE ZipCodID > 1000");
}

void ExpectSame(const std::string& one, const std::string& other) {
  const PracticeDatabase here = OpenDatabase(one);
  const PracticeDatabase there = OpenDatabase(other);
  EXPECT_EQ(here.options.kind, there.options.kind);
  EXPECT_EQ(here.options.office, there.options.office);
  EXPECT_EQ(here.options.row_guids, there.options.row_guids);
  const auto whole = [](std::int64_t) { return true; };
  for (const Table& known : PracticeTables()) {
    const CopiedTable table(known, here.options);
    EXPECT_EQ(Compare(here, there, table, whole)->difference, "") << known.name;
    const auto last = [&](const PracticeDatabase& database) {
      return session::ToId(database.connection->Execute(database.schema->LastKey(known))->Get(0));
    };
    EXPECT_EQ(last(here), last(there)) << known.name;
  }
}

// Texts and numbers at their limits, changes in the log, a key that was handed out and is gone.
void MakeHostile(const std::string& url) {
  Practice practice = CreatePractice(url, kOffices);
  const PracticeDatabase& database = practice.Database();
  const ChangeAuthor author{"admin", [] { return kTestClock; }};
  database.write_as(&author);
  database.Run(
      "INSERT INTO PATable (pID, pLASNAM, pFIRNAM, pADD1, pTypPat, OfficeID) VALUES "
      "(5, 'O''Brien \"B\"; -- [x] #1/2/2020# @@IDEN', 'Zo\u00eb \u674e \U0001F9B7 %_*', '  \\ \r\n\t$1 {0} TRUE "
      "', "
      "'1', 1), (5, '', null, '\u00df', '2', 2)");
  database.Run("UPDATE PATable SET pLASNAM='ROE' WHERE pID=5 AND OfficeID=2");
  database.Run("UPDATE PATable SET pLASNAM='Roe' WHERE pID=5 AND OfficeID=2");
  database.Run("INSERT INTO AccountTable (AccPid, AccBal, OfficeID) VALUES (5, -12345678901.2345, 1), (6, 0.0001, 2)");
  database.Run("INSERT INTO EmpTable (EmpNam) VALUES ('gone')");
  database.Run("DELETE FROM EmpTable WHERE EmpNam='gone'");
}

TEST(CopyPractice, ADemoGoesToAServerAndBack) {
  const PracticeFile first("copy_first");
  const PracticeFile last("copy_last");
  const ServerDatabase server;
  MakeSmallDemo(first.Url());
  EXPECT_TRUE(CopyPractice(first.Url(), server.Url(), GoOn));
  EXPECT_TRUE(CopyPractice(server.Url(), last.Url(), GoOn));
  ExpectSame(first.Url(), server.Url());
  ExpectSame(first.Url(), last.Url());
  EXPECT_THAT(Refusal(first.Url(), last.Url()), HasSubstr("in use already"));
}

// To the server and from there, by its own library and by its ODBC driver.
TEST(CopyPractice, HostileValuesArriveAsTheyAre) {
  const PracticeFile first("copy_hostile");
  MakeHostile(first.Url());
  for (const bool by_odbc : {false, true}) {
    const PracticeFile last("copy_hostile_back");
    const ServerDatabase server;
    const std::string url = by_odbc ? OdbcUrl(server.Url()) : server.Url();
    EXPECT_TRUE(CopyPractice(first.Url(), url, GoOn));
    EXPECT_TRUE(CopyPractice(url, last.Url(), GoOn));
    ExpectSame(first.Url(), server.Url());
    ExpectSame(first.Url(), last.Url());
    const PracticeDatabase copied = OpenDatabase(url);
    EXPECT_EQ(session::ToText(copied.Run("SELECT pADD1 FROM PATable WHERE pID=5 AND OfficeID=1")->Get(0)),
              "  \\ \r\n\t$1 {0} TRUE ");
    copied.Run("INSERT INTO EmpTable (EmpNam) VALUES ('next')");
    EXPECT_EQ(session::ToId(copied.Run("SELECT EmpInd FROM EmpTable WHERE EmpNam='next'")->Get(0)), 2);
  }
}

TEST(CopyPractice, WhatATargetCannotHoldIsNamed) {
  const PracticeFile first("copy_refused");
  const ServerDatabase server;
  {
    const Practice practice = CreatePractice(first.Url());
    practice.Database().Run("INSERT INTO PATable (pID, pLASNAM) VALUES (5, 'Roe'), (6, '" + std::string(300, 'x') +
                            "'), (7, 'Poe')");
  }
  EXPECT_THAT(Refusal(first.Url(), server.Url()),
              HasSubstr("PATable: record 6 of office 1 cannot be copied: The text for pLASNAM is too long"));
  OpenDatabase(first.Url()).Run("UPDATE PATable SET pLASNAM='Doe' WHERE pID=6");
  EXPECT_TRUE(CopyPractice(first.Url(), server.Url(), GoOn));
  ExpectSame(first.Url(), server.Url());
}

// Values that a file keeps as they were written are found as far as they have become others, each time anew.
TEST(CopyPractice, WhatATargetKeepsAsAnotherIsNamed) {
  const PracticeFile first("copy_other");
  const ServerDatabase server;
  {
    const Practice practice = CreatePractice(first.Url());
    practice.Database().Run(
        "INSERT INTO PATable (pID, pLASNAM, pBIRDAT) VALUES (5, 'Roe', '1980-02-03'), (6, 'Poe', null)");
    practice.Database().connection->Execute("UPDATE PATable SET pBIRDAT='2/3/1980' WHERE pID=6");
  }
  for (int run = 0; run < 2; ++run) {
    EXPECT_THAT(Refusal(first.Url(), server.Url()),
                HasSubstr("Not the same in both: PATable (pBIRDAT of record 6 of office 1)."));
  }
  OpenDatabase(first.Url()).connection->Execute("UPDATE PATable SET pBIRDAT='1980-02-03', pID=3000000000 WHERE pID=6");
  EXPECT_THAT(Refusal(first.Url(), server.Url()), HasSubstr("PATable: record 3000000000 of office 1 cannot be copied"));
}

// Other programs' tables and columns stay; what the recall screen keeps comes along.
TEST(CopyPractice, NamesWhatIsNoPracticesAndTakesTheRecallsBackup) {
  const PracticeFile first("copy_further");
  const PracticeFile last("copy_further_back");
  const ServerDatabase server;
  MakeSmallDemo(first.Url(), {});
  OpenDatabase(first.Url())
      .connection->Execute(
          "CREATE TABLE Further (a int); ALTER TABLE PATable ADD COLUMN pFurther int; CREATE TABLE RSTableBackup "
          "(RCRecNum int not null, RCTtl nvarchar(65) COLLATE NOCASE, RCDonPriDay smallint); INSERT INTO RSTableBackup "
          "VALUES (7, 'It''s', 3), (8, null, 0)");
  std::string left;
  EXPECT_TRUE(CopyPractice(first.Url(), server.Url(), [&](const CopyProgress& progress) {
    left += progress.step == Step::LeftBehind ? std::string(progress.table) + " " : "";
    return true;
  }));
  EXPECT_EQ(left, "Further PATable.pFurther ");
  EXPECT_TRUE(CopyPractice(server.Url(), last.Url(), GoOn));
  for (const std::string& url : {server.Url(), last.Url()}) {
    const PracticeDatabase copied = OpenDatabase(url);
    EXPECT_EQ(session::ToText(copied.Run("SELECT RCTtl FROM RSTableBackup WHERE RCRecNum=7 AND RCTtl='IT''S'")->Get(0)),
              "It's");
    EXPECT_EQ(session::ToId(copied.Run("SELECT Count(*) FROM RSTableBackup")->Get(0)), 2);
  }
}

// A desk's login sees a part of the practice.
TEST(CopyPractice, IsTheOwnersAlone) {
  const ServerDatabase server;
  const PracticeFile file("copy_by_desk");
  const std::string login = SharedCluster().MakeLogin("copier");
  {
    const Practice practice = CreatePractice(server.Url(), kOffices);
    AdmitDesk(*practice.Database().connection, kOffices, {login, {1}});
  }
  EXPECT_THAT(Refusal(SharedCluster().Url(server.Name(), login), file.Url()),
              HasSubstr("by the owner of its tables alone"));
  EXPECT_TRUE(IsVacant(file.Url()));
}

// Copies behind a process that was killed: a server knows of its end a moment later.
bool CopyAgain(const std::string& from, const std::string& to, const WhileCopying& told) {
  constexpr int kTries = 10000;
  for (int tries = 1;; ++tries) {
    try {
      return CopyPractice(from, to, told);
    } catch (const session::DatabaseError& error) {
      if (tries == kTries || std::string_view(error.what()).find("under way") == std::string_view::npos) {
        throw;
      }
    }
  }
}

// Copies in a process of its own, which is killed at a step of a table. False when it ended by itself.
bool IsKilled(const std::string& from, const std::string& to, std::string_view table, Step step) {
  const pid_t child = fork();
  if (child == 0) {
    try {
      CopyAgain(from, to, [&](const CopyProgress& progress) {
        if (progress.table == table && progress.step == step) {
          (void)raise(SIGKILL);
        }
        return true;
      });
    } catch (const session::DatabaseError& error) {
      std::cerr << error.what() << "\n";
    }
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status);
}

TEST(CopyPractice, GoesOnWhereItWasKilled) {
  const PracticeFile first("copy_killed");
  const PracticeFile file("copy_killed_file");
  const ServerDatabase server;
  MakeSmallDemo(first.Url(), {});
  for (const Table& table : PracticeTables()) {
    EXPECT_TRUE(IsKilled(first.Url(), server.Url(), table.name, Step::Copied)) << table.name;
  }
  for (const auto& open : {OpenDatabase, +[](const std::string& url) { return CreateDatabase(url); }}) {
    try {
      open(server.Url());
      ADD_FAILURE() << "half a practice";
    } catch (const session::DatabaseError& error) {
      EXPECT_THAT(error.what(), HasSubstr("or the copy was broken off"));
    }
  }
  EXPECT_TRUE(IsKilled(first.Url(), server.Url(), "PATable", Step::Same));
  std::int64_t copied_again = 0;
  EXPECT_TRUE(CopyAgain(first.Url(), server.Url(), [&](const CopyProgress& progress) {
    copied_again += progress.step == Step::Copied ? progress.rows : 0;
    return true;
  }));
  EXPECT_EQ(copied_again, 0);
  ExpectSame(first.Url(), server.Url());

  EXPECT_TRUE(IsKilled(server.Url(), file.Url(), "PATable", Step::Copied));
  EXPECT_FALSE(CopyPractice(server.Url(), file.Url(), [&](const CopyProgress& progress) {
    if (progress.table != "CovTable") {
      return true;
    }
    EXPECT_THAT(Refusal(server.Url(), file.Url()), HasSubstr("Another copy into this database is under way"));
    return false;
  })) << "stopped";
  EXPECT_TRUE(CopyPractice(server.Url(), file.Url(), GoOn));
  ExpectSame(first.Url(), file.Url());
}

TEST(CopyPractice, ADamagedRowIsFoundAndCopiedAnew) {
  const PracticeFile first("copy_damaged");
  const ServerDatabase server;
  MakeSmallDemo(first.Url(), {});
  const auto damage = [&](const CopyProgress& progress) {
    if (progress.table == "PATable" && progress.step == Step::Copied && progress.rows > 0) {
      SharedCluster().Run("UPDATE PATable SET pLASNAM=pLASNAM || ' ' WHERE pID=7", server.Name());
    }
    return true;
  };
  try {
    CopyPractice(first.Url(), server.Url(), damage);
    FAIL() << "nothing was found";
  } catch (const session::DatabaseError& error) {
    EXPECT_THAT(error.what(), HasSubstr("Not the same in both: PATable (pLASNAM of record 7 of office 1)."));
  }
  EXPECT_THAT(Refusal(first.Url(), server.Url()), "");
  ExpectSame(first.Url(), server.Url());
}

}  // namespace
}  // namespace host
