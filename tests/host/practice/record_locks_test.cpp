#include "practice/record_locks.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

#include "host/practice/practice_fixture.h"

namespace host {
namespace {

// Two workstations: each has its own connection to the practice.
class RecordLocksTest : public testing::Test {
 protected:
  PracticeFile file_{"locks"};
  Practice here_ = CreatePractice(file_.Url());
  Practice there_{file_.Url()};
  OfficeDatabase here_office_{here_, 1};
  OfficeDatabase there_office_{there_, 1};
  RecordLocks ann_{here_office_, "ann"};
};

TEST_F(RecordLocksTest, ARecordIsHeldAgainstOthersUntilItsLastRelease) {
  RecordLocks bob(there_office_, "bob");
  EXPECT_TRUE(ann_.Hold("PATable", 5));
  EXPECT_TRUE(ann_.Hold("PATABLE", 5));
  EXPECT_FALSE(bob.Hold("paTable", 5));
  EXPECT_TRUE(bob.HeldByAnother("PATABLE", 5));
  EXPECT_FALSE(ann_.HeldByAnother("PATABLE", 5));
  EXPECT_TRUE(bob.Hold("PATable", 6));
  EXPECT_TRUE(bob.Hold("DTTable", 5));

  bob.Release("PATable", 5);
  ann_.Release("PATable", 5);
  EXPECT_FALSE(bob.Hold("PATable", 5)) << "held twice, released once";
  ann_.Release("PATable", 5);
  EXPECT_TRUE(bob.Hold("PATable", 5));
  EXPECT_FALSE(ann_.Hold("PATable", 5));
}

TEST_F(RecordLocksTest, ASessionThatEndsReleasesWhatItHeld) {
  {
    RecordLocks bob(there_office_, "bob");
    EXPECT_TRUE(bob.Hold("EmpTable", 1));
    EXPECT_TRUE(bob.Hold("EmpTable", 1));
    EXPECT_TRUE(bob.Hold("InsCoTable", 2));
  }
  EXPECT_TRUE(ann_.Hold("EmpTable", 1));
  EXPECT_TRUE(ann_.Hold("InsCoTable", 2));
}

TEST_F(RecordLocksTest, ARecordIsHeldInTheOfficeThatTheSessionWasIn) {
  Practice practice = CreatePractice("sqlite::memory:", {.kind = session::kOfficeScoped, .office = 1, .offices = 2});
  OfficeDatabase first(practice, 1);
  OfficeDatabase second(practice, 2);
  OfficeDatabase moving(practice, 1);
  const auto held = [](OfficeDatabase& office) { return RecordLocks(office, "bob").HeldByAnother("PATable", 5); };
  {
    RecordLocks cleo(moving, "cleo");
    EXPECT_TRUE(cleo.Hold("PATable", 5));
    moving = OfficeDatabase(practice, 2);
    EXPECT_FALSE(held(second));
    EXPECT_TRUE(cleo.Hold("PATable", 5));
    EXPECT_TRUE(held(second));
    cleo.Release("PATable", 5);
    EXPECT_FALSE(held(second));
    EXPECT_TRUE(held(first));
  }
  EXPECT_FALSE(held(first));
}

TEST_F(RecordLocksTest, WhatADeadProcessHeldIsFree) {
  std::array<int, 2> taken{};
  std::array<int, 2> stop{};
  ASSERT_EQ(pipe(taken.data()), 0);
  ASSERT_EQ(pipe(stop.data()), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    close(stop[1]);
    Practice practice(file_.Url());
    OfficeDatabase office(practice, 1);
    RecordLocks locks(office, "child");
    char answer = locks.Hold("PATable", 9) ? 'y' : 'n';
    (void)!write(taken[1], &answer, 1);
    (void)!read(stop[0], &answer, 1);  // until the parent closes its end
    _exit(0);                          // as a process that crashes: nothing is released
  }
  close(taken[1]);
  close(stop[0]);
  char answer = 0;
  ASSERT_EQ(read(taken[0], &answer, 1), 1);
  EXPECT_EQ(answer, 'y');
  EXPECT_FALSE(ann_.Hold("PATable", 9)) << "its holder lives";
  EXPECT_TRUE(ann_.HeldByAnother("PATable", 9));

  close(stop[1]);
  close(taken[0]);
  ASSERT_EQ(waitpid(child, nullptr, 0), child);
  EXPECT_FALSE(ann_.HeldByAnother("PATable", 9));
  EXPECT_TRUE(ann_.Hold("PATable", 9));
  EXPECT_EQ(Ask(here_, "SELECT RLWho FROM RecordLockTable"), "ann");
}

TEST_F(RecordLocksTest, AProcessNumberThatWasUsedAgainIsAnotherProcess) {
  ProcessIdentity earlier = ThisProcess();
  EXPECT_TRUE(MayBeAlive(earlier));
  earlier.started -= 1;
  EXPECT_FALSE(MayBeAlive(earlier));
  earlier.machine += " elsewhere";
  EXPECT_TRUE(MayBeAlive(earlier)) << "another machine's processes cannot be seen from here";
}

TEST(OfficesOfLocks, OfficesHoldTheirRecordsApart) {
  Practice practice = CreatePractice("sqlite::memory:", {.kind = session::kOfficeScoped, .offices = 2});
  OfficeDatabase first_office(practice, 1);
  OfficeDatabase second_office(practice, 2);
  RecordLocks first(first_office, "ann");
  RecordLocks second(second_office, "bob");
  EXPECT_TRUE(first.Hold("PATable", 1));
  EXPECT_TRUE(second.Hold("PATable", 1));
}

}  // namespace
}  // namespace host
