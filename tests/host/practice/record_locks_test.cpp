#include "practice/record_locks.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <fstream>

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

using Holder = std::optional<session::RecordHolder>;

bool Holds(const Holder& other) {
  return !other.has_value();
}

// A process of another machine, or of another container on this one, and its clock.
struct Elsewhere {
  ProcessIdentity process = [] {
    ProcessIdentity here = ThisProcess();
    here.machine = "BACK-OFFICE";
    here.system += " elsewhere";
    return here;
  }();
  std::chrono::sys_seconds now = UtcNow();

  RecordLocks::Clock Clock() {
    return [this] { return now; };
  }
};

TEST_F(RecordLocksTest, ARecordIsHeldAgainstOthersUntilItsLastRelease) {
  RecordLocks bob(there_office_, "bob");
  EXPECT_TRUE(Holds(ann_.Hold("PATable", 5)));
  EXPECT_TRUE(Holds(ann_.Hold("PATABLE", 5)));
  const Holder holder = bob.Hold("paTable", 5);
  ASSERT_TRUE(holder);
  EXPECT_EQ(holder->user, "ann");
  EXPECT_EQ(holder->machine, ThisProcess().machine);
  EXPECT_FALSE(holder->silent);
  EXPECT_TRUE(bob.HeldByAnother("PATABLE", 5));
  EXPECT_FALSE(ann_.HeldByAnother("PATABLE", 5));
  EXPECT_TRUE(Holds(bob.Hold("PATable", 6)));
  EXPECT_TRUE(Holds(bob.Hold("DTTable", 5)));

  bob.Release("PATable", 5);
  ann_.Release("PATable", 5);
  EXPECT_FALSE(Holds(bob.Hold("PATable", 5))) << "held twice, released once";
  ann_.Release("PATable", 5);
  EXPECT_TRUE(Holds(bob.Hold("PATable", 5)));
  EXPECT_FALSE(Holds(ann_.Hold("PATable", 5)));
}

TEST_F(RecordLocksTest, ASessionThatEndsReleasesWhatItHeld) {
  {
    RecordLocks bob(there_office_, "bob");
    EXPECT_TRUE(Holds(bob.Hold("EmpTable", 1)));
    EXPECT_TRUE(Holds(bob.Hold("EmpTable", 1)));
    EXPECT_TRUE(Holds(bob.Hold("InsCoTable", 2)));
  }
  EXPECT_TRUE(Holds(ann_.Hold("EmpTable", 1)));
  EXPECT_TRUE(Holds(ann_.Hold("InsCoTable", 2)));
}

TEST_F(RecordLocksTest, ARecordIsHeldInTheOfficeThatTheSessionWasIn) {
  Practice practice = CreatePractice("sqlite::memory:", {.kind = session::kOfficeScoped, .office = 1, .offices = 2});
  OfficeDatabase first(practice, 1);
  OfficeDatabase second(practice, 2);
  OfficeDatabase moving(practice, 1);
  const auto held = [](OfficeDatabase& office) {
    return RecordLocks(office, "bob").HeldByAnother("PATable", 5).has_value();
  };
  {
    RecordLocks cleo(moving, "cleo");
    EXPECT_TRUE(Holds(cleo.Hold("PATable", 5)));
    moving = OfficeDatabase(practice, 2);
    EXPECT_FALSE(held(second));
    EXPECT_TRUE(Holds(cleo.Hold("PATable", 5)));
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
    char answer = Holds(locks.Hold("PATable", 9)) ? 'y' : 'n';
    (void)!write(taken[1], &answer, 1);
    (void)!read(stop[0], &answer, 1);  // until the parent closes its end
    _exit(0);                          // as a process that crashes: nothing is released
  }
  close(taken[1]);
  close(stop[0]);
  char answer = 0;
  ASSERT_EQ(read(taken[0], &answer, 1), 1);
  EXPECT_EQ(answer, 'y');
  EXPECT_FALSE(Holds(ann_.Hold("PATable", 9))) << "its holder lives";
  EXPECT_TRUE(ann_.HeldByAnother("PATable", 9));

  close(stop[1]);
  close(taken[0]);
  ASSERT_EQ(waitpid(child, nullptr, 0), child);
  EXPECT_FALSE(ann_.HeldByAnother("PATable", 9));
  EXPECT_TRUE(Holds(ann_.Hold("PATable", 9)));
}

TEST_F(RecordLocksTest, AProcessElsewhereLivesByItsBeats) {
  Elsewhere elsewhere;
  RecordLocks bob(there_office_, "bob", elsewhere.process, elsewhere.Clock());
  Elsewhere here;
  RecordLocks cleo(here_office_, "cleo", ThisProcess(), here.Clock());
  ASSERT_TRUE(Holds(bob.Hold("PATable", 5)));
  here.now = elsewhere.now + kSilentAfter;
  EXPECT_FALSE(cleo.Hold("PATable", 5)->silent);
  EXPECT_FALSE(Holds(cleo.TakeOver("PATable", 5))) << "he has only just beaten";

  here.now += std::chrono::seconds(1);
  const Holder silent = cleo.Hold("PATable", 5);
  ASSERT_TRUE(silent);
  EXPECT_TRUE(silent->silent);
  EXPECT_EQ(silent->user, "bob");
  EXPECT_EQ(silent->machine, "BACK-OFFICE");
  elsewhere.now = here.now;
  bob.Beat();
  EXPECT_FALSE(cleo.Hold("PATable", 5)->silent);

  here.now += 2 * kSilentAfter;
  EXPECT_TRUE(Holds(cleo.TakeOver("PATable", 5)));
  EXPECT_TRUE(cleo.Keeps("PATable", 5));
  elsewhere.now = here.now;
  bob.Beat();
  EXPECT_FALSE(bob.Keeps("PATable", 5));
  EXPECT_EQ(bob.HeldByAnother("PATable", 5)->user, "cleo");
  cleo.Release("PATable", 5);
  EXPECT_FALSE(bob.Keeps("PATable", 5)) << "it may have been changed since";
  EXPECT_FALSE(Holds(bob.Hold("PATable", 5))) << "for what was read when it was held first";
  bob.Release("PATable", 5);
  EXPECT_TRUE(Holds(bob.Hold("PATable", 5)));
}

TEST_F(RecordLocksTest, WhoeverSavesHasJustGivenASignOfLife) {
  Elsewhere elsewhere;
  RecordLocks bob(there_office_, "bob", elsewhere.process, elsewhere.Clock());
  ASSERT_TRUE(Holds(bob.Hold("PATable", 5)));
  elsewhere.now += 2 * kSilentAfter;
  EXPECT_TRUE(bob.Keeps("PATable", 5)) << "nobody came in between";
  RecordLocks cleo(here_office_, "cleo", ThisProcess(), elsewhere.Clock());
  EXPECT_FALSE(Holds(cleo.TakeOver("PATable", 5)));
}

TEST(Processes, ANumberThatWasUsedAgainIsAnotherProcess) {
  ProcessIdentity process = ThisProcess();
  EXPECT_FALSE(process.system.empty());
  EXPECT_EQ(StateOf(process), ProcessState::Runs);
  process.started -= 1;
  EXPECT_EQ(StateOf(process), ProcessState::Ended);
  EXPECT_EQ(StateOf(Elsewhere().process), ProcessState::Elsewhere);
  process.system.clear();
  EXPECT_EQ(StateOf(process), ProcessState::Elsewhere) << "nothing tells where it was";
}

TEST(OfficesOfLocks, OfficesHoldTheirRecordsApart) {
  Practice practice = CreatePractice("sqlite::memory:", {.kind = session::kOfficeScoped, .offices = 2});
  OfficeDatabase first_office(practice, 1);
  OfficeDatabase second_office(practice, 2);
  RecordLocks first(first_office, "ann");
  RecordLocks second(second_office, "bob");
  EXPECT_TRUE(Holds(first.Hold("PATable", 1)));
  EXPECT_TRUE(Holds(second.Hold("PATable", 1)));
}

TEST(LockFile, OneThatAPowerCutHasSpoiltIsMadeAnew) {
  const PracticeFile file("spoilt");
  { const Practice made = CreatePractice(file.Url()); }
  const std::string locks = file.Path().string() + "-locks";
  for (const std::string& rubbish : {std::string(9000, 'x'), "SQLite format 3" + std::string(5000, '\0')}) {
    std::ofstream(locks, std::ios::binary | std::ios::trunc) << rubbish;
    Practice practice(file.Url());
    OfficeDatabase office(practice, 1);
    RecordLocks ann(office, "ann");
    EXPECT_TRUE(Holds(ann.Hold("PATable", 1)));
  }
}

}  // namespace
}  // namespace host
