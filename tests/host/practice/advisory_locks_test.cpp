#include "practice/advisory_locks.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>

#include "database/unix/throwaway_cluster.h"
#include "host/practice/practice_fixture.h"
#include "practice/record_locks.h"

namespace host {
namespace {

TEST(HolderNames, SayUserAndMachineInWhatAServerKeeps) {
  EXPECT_EQ(HolderName("ann", "FRONT-DESK"), "ann@FRONT-DESK");
  for (const auto& [user, machine] : {std::pair<std::string, std::string>("Zoë O'Neil", "日本 PC"),
                                      {"a@b%41", "x@y"},
                                      {"", "FRONT-DESK"},
                                      {"ann", ""}}) {
    const std::string name = HolderName(user, machine);
    EXPECT_TRUE(std::ranges::all_of(name, [](char c) { return c > ' ' && c < 0x7f; })) << name;
    EXPECT_EQ(UserAndMachine(name), std::pair(user, machine));
  }
  EXPECT_EQ(UserAndMachine("psql"), std::pair(std::string(), std::string()));
}

TEST(HolderNames, AreCutBetweenCharacters) {
  std::string long_name;
  for (int i = 0; i < 30; ++i) {
    long_name += "ü";
  }
  const std::string name = HolderName(long_name, long_name);
  EXPECT_LE(name.size(), 63U);
  const auto [user, machine] = UserAndMachine(name);
  EXPECT_EQ(user, "üüüüüü");
  EXPECT_EQ(machine, "üüüü");
  EXPECT_EQ(UserAndMachine(HolderName("ann", std::string(300, 'x'))).second.size(), 59U);
}

// Two desks on one server.
class AdvisoryLocksTest : public testing::Test {
 protected:
  static ThrowawayCluster& Server() {
    static ThrowawayCluster server{ThrowawayCluster::Own()};
    return server;
  }
  void TearDown() override { Server().DropDatabase(database_); }

  std::string database_ = Server().MakeDatabase("locks");
  std::string url_ = Server().Url(database_);
  Practice here_ = CreatePractice(url_, {.kind = session::kOfficeScoped, .offices = 2});
  Practice there_{url_};
  OfficeDatabase here_office_{here_, 1};
  OfficeDatabase there_office_{there_, 1};
  RecordLocks ann_{here_office_, "Zoë O'Neil"};
  RecordLocks bob_{there_office_, "bob"};
};

TEST_F(AdvisoryLocksTest, ARecordIsHeldAgainstTheOtherDeskAndTheOtherSessionOfThisOne) {
  RecordLocks cleo(here_office_, "cleo");
  EXPECT_FALSE(ann_.Hold("PATable", 5));
  EXPECT_FALSE(ann_.Hold("PATABLE", 5));
  for (RecordLocks* other : {&bob_, &cleo}) {
    const auto holder = other->Hold("paTable", 5);
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->user, "Zoë O'Neil");
    EXPECT_EQ(holder->machine, ThisProcess().machine);
    EXPECT_FALSE(holder->silent);
    EXPECT_TRUE(other->HeldByAnother("PATable", 5));
    EXPECT_TRUE(other->TakeOver("PATable", 5)) << "its holder lives";
    EXPECT_FALSE(other->Keeps("PATable", 5));
  }
  EXPECT_FALSE(ann_.HeldByAnother("PATable", 5));
  EXPECT_FALSE(bob_.Hold("PATable", 6));
  EXPECT_FALSE(bob_.Hold("DTTable", 5));
  ann_.Release("PATable", 5);
  EXPECT_TRUE(bob_.Hold("PATable", 5)) << "held twice, released once";
  ann_.Release("PATable", 5);
  EXPECT_FALSE(bob_.Hold("PATable", 5));

  OfficeDatabase other_office(there_, 2);
  RecordLocks dora(other_office, "dora");
  EXPECT_FALSE(dora.Hold("PATable", 5));
}

TEST_F(AdvisoryLocksTest, ASessionThatEndsReleasesWhatItHeld) {
  {
    RecordLocks cleo(here_office_, "cleo");
    EXPECT_FALSE(cleo.Hold("EmpTable", 1));
    EXPECT_TRUE(bob_.HeldByAnother("EmpTable", 1));
  }
  EXPECT_FALSE(bob_.HeldByAnother("EmpTable", 1));
  EXPECT_FALSE(bob_.Hold("EmpTable", 1));
}

// The server looks at once: within a few tries, each a visit to it.
TEST_F(AdvisoryLocksTest, WhatAKilledProcessHeldIsFree) {
  std::array<int, 2> taken{};
  ASSERT_EQ(pipe(taken.data()), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    Practice practice(url_);
    OfficeDatabase office(practice, 1);
    RecordLocks locks(office, "child");
    const char answer = locks.Hold("PATable", 9) ? 'n' : 'y';
    (void)!write(taken[1], &answer, 1);
    pause();
    _exit(0);
  }
  close(taken[1]);
  char answer = 0;
  ASSERT_EQ(read(taken[0], &answer, 1), 1);
  close(taken[0]);
  EXPECT_EQ(answer, 'y');
  EXPECT_EQ(bob_.HeldByAnother("PATable", 9).value_or(session::RecordHolder()).user, "child");
  kill(child, SIGKILL);
  ASSERT_EQ(waitpid(child, nullptr, 0), child);
  constexpr int kTries = 10000;
  int tries = 0;
  while (bob_.HeldByAnother("PATable", 9) && ++tries < kTries) {
  }
  EXPECT_LT(tries, kTries);
  EXPECT_FALSE(bob_.Hold("PATable", 9));
}

TEST_F(AdvisoryLocksTest, AfterTheServersRestartALockIsTakenAgainUnlessSomebodyElseWasFirst) {
  EXPECT_FALSE(ann_.Hold("PATable", 1));
  EXPECT_FALSE(ann_.Hold("PATable", 2));
  EXPECT_FALSE(ann_.Hold("PATable", 3));
  Server().Restart();
  EXPECT_FALSE(bob_.Hold("PATable", 2)) << "nobody holds it";
  EXPECT_TRUE(ann_.Keeps("PATable", 1));
  EXPECT_TRUE(bob_.Hold("PATable", 1));
  EXPECT_FALSE(ann_.Keeps("PATable", 2));
  EXPECT_EQ(ann_.HeldByAnother("PATable", 2).value_or(session::RecordHolder()).user, "bob");
  bob_.Release("PATable", 2);
  EXPECT_FALSE(ann_.Keeps("PATable", 2)) << "it may have been changed since";
  ann_.Beat();
  EXPECT_TRUE(bob_.Hold("PATable", 3)) << "the beat has taken it again";
}

}  // namespace
}  // namespace host
