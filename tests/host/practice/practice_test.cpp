#include "practice/practice.h"

#include <gtest/gtest.h>

#include <fstream>
#include <future>
#include <utility>

#include "database/unix/throwaway_cluster.h"
#include "host/practice/practice_fixture.h"
#include "practice/logins.h"

namespace host {
namespace {

TEST(Practice, MakingThatIsBrokenOffLeavesNothing) {
  const PracticeFile file("broken_off");
  EXPECT_TRUE(IsVacant(file.Url()));
  EXPECT_THROW(CreatePractice(file.Url(), {},
                              [](Practice& practice) {
                                EXPECT_EQ(Ask(practice, "SELECT COUNT(*) FROM OffLocTable"), "1");
                                throw session::DatabaseError("The disk is full.", {}, 1);
                              }),
               session::DatabaseError);
  EXPECT_TRUE(IsVacant(file.Url()));
  CreatePractice(file.Url());
  EXPECT_FALSE(IsVacant(file.Url()));
}

TEST(Practice, SeveralDesksAtOnceMakeItAndItsFirstLoginOnce) {
  const std::string name = SharedCluster().MakeDatabase("made");
  const std::string url = SharedCluster().Url(name);
  {
    std::vector<std::future<Practice>> desks;
    desks.reserve(3);
    for (int desk = 0; desk < 3; ++desk) {
      desks.push_back(std::async(std::launch::async, [&url] { return OpenOrCreatePractice(url); }));
    }
    for (std::future<Practice>& desk : desks) {
      EXPECT_EQ(desk.get().Offices(), std::vector<std::int32_t>{1});
    }
    Practice here(url);
    Practice there(url);
    OfficeDatabase other(there, 1);
    auto first = std::make_optional<session::Transaction>(other.Connection());
    other.Connection().Execute(there.Database().schema->Lock());
    AddLogin(other, {.name = "ann", .password_hash = "-", .person = 0, .locations = {}, .rights = {}});
    here.Database().connection->WhileBusy = [&first](session::Busy busy) {
      if (busy == session::Busy::Waiting && first) {
        first->Commit();
        first.reset();
      }
      return false;
    };
    EXPECT_FALSE(AddFirstLogin(here, 1, "bob", "-"));
    EXPECT_FALSE(first);
  }
  SharedCluster().DropDatabase(name);
}

std::filesystem::perms ModeOf(const PracticeFile& file, const char* tail) {
  return std::filesystem::status(file.Path().string() + tail).permissions();
}

TEST(Practice, ItsFilesAreOpenToTheirOwnerOrGroupAlone) {
  using std::filesystem::perms;
  constexpr perms kOwner = perms::owner_read | perms::owner_write;
  constexpr perms kGroup = kOwner | perms::group_read | perms::group_write;
  for (const bool group : {false, true}) {
    const perms due = group ? kGroup : kOwner;
    const PracticeFile file(group ? "group_" : "private_");
    { const Practice made = CreatePractice(file.Url(), {.group = group}); }
    EXPECT_EQ(ModeOf(file, ""), due);
    std::filesystem::permissions(file.Path(), due | perms::group_read | perms::others_all);  // as an older program
    std::filesystem::remove(file.Path().string() + "-locks");
    for (const auto& [tail, left] :
         {std::pair("-wal", due | perms::others_read), std::pair("-shm", perms::owner_read)}) {
      std::ofstream(file.Path().string() + tail).close();  // as a killed program, or one that could only read
      std::filesystem::permissions(file.Path().string() + tail, left);
    }
    const Practice practice(file.Url());
    practice.Database().connection->Execute("CREATE TABLE Filler (a)");
    for (const char* tail : {"", "-wal", "-shm", "-locks", "-locks-wal", "-locks-shm"}) {
      EXPECT_EQ(ModeOf(file, tail), due) << tail << " of " << file.Path();
    }
  }
}

TEST(Practice, OfAProtectedFileIsOnlyLookedAt) {
  const PracticeFile file("protected");
  CreatePractice(file.Url());
  using std::filesystem::perms;
  std::filesystem::permissions(file.Path(), perms::owner_read);
  Practice practice(file.Url());
  EXPECT_TRUE(practice.ReadOnly());
  HostSession session(practice, practice.Office(), LoginRights("Ann"), StandingStill());
  EXPECT_FALSE(LogIn(session.Office(), "ann", "ann", kTestClock)) << "refused, and nothing thrown";
}

}  // namespace
}  // namespace host
