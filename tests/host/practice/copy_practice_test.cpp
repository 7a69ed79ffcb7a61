#include "practice/copy_practice.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <iostream>

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
    EXPECT_EQ(DigestOf(here, table, whole), DigestOf(there, table, whole)) << known.name;
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
              HasSubstr("Record 6 of office 1 in PATable cannot be copied: The text for pLASNAM is too long"));
  OpenDatabase(first.Url()).Run("UPDATE PATable SET pLASNAM='Doe' WHERE pID=6");
  EXPECT_TRUE(CopyPractice(first.Url(), server.Url(), GoOn));
  ExpectSame(first.Url(), server.Url());
}

// Copies in a process of its own, which is killed at a step of a table. False when it ended by itself.
bool IsKilled(const std::string& from, const std::string& to, std::string_view table, Step step) {
  const pid_t child = fork();
  if (child == 0) {
    try {
      CopyPractice(from, to, [&](const CopyProgress& progress) {
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
  EXPECT_THROW(OpenDatabase(server.Url()), session::DatabaseError) << "half a practice";
  EXPECT_TRUE(IsKilled(first.Url(), server.Url(), "PATable", Step::Same));
  std::int64_t copied_again = 0;
  EXPECT_TRUE(CopyPractice(first.Url(), server.Url(), [&](const CopyProgress& progress) {
    copied_again += progress.step == Step::Copied ? progress.rows : 0;
    return true;
  }));
  EXPECT_EQ(copied_again, 0);
  ExpectSame(first.Url(), server.Url());

  EXPECT_TRUE(IsKilled(server.Url(), file.Url(), "PATable", Step::Copied));
  EXPECT_FALSE(CopyPractice(server.Url(), file.Url(), [](const CopyProgress& progress) {
    return progress.table != "CovTable";
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
    EXPECT_THAT(error.what(), HasSubstr("Not the same in both: PATable."));
  }
  EXPECT_THAT(Refusal(first.Url(), server.Url()), "");
  ExpectSame(first.Url(), server.Url());
}

}  // namespace
}  // namespace host
