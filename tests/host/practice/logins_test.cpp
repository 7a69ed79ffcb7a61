#include "practice/logins.h"

#include <gtest/gtest.h>

#include "data/literal.h"
#include "data/statements.h"
#include "host/practice/practice_fixture.h"

namespace host {
namespace {

const std::string kMemory = "sqlite::memory:";
constexpr forms::DateTime kNow{std::chrono::seconds(1'750'000'000)};

class LoginsTest : public testing::Test {
 protected:
  std::int32_t Add(const std::string& name, std::vector<std::int32_t> locations, std::vector<std::string> rights) {
    return AddLogin(database_,
                    {name, HashPassword("s3cret", HashCost::Least), 7, std::move(locations), std::move(rights)});
  }

  Practice practice_ = CreatePractice(kMemory);
  OfficeDatabase database_{practice_, practice_.Office()};
};

TEST_F(LoginsTest, APasswordOpensOnlyItsOwnLogin) {
  const std::string name = "O'Brien'; DROP TABLE PWMTable; --";
  const std::int32_t id = Add(name, {1}, {});
  Add("other", {1}, {});
  SetPassword(database_, id, HashPassword("pass word é", HashCost::Least));

  const auto login = LogIn(database_, name, "pass word é", kNow);
  ASSERT_TRUE(login);
  EXPECT_EQ(login.login->login, id);
  EXPECT_EQ(login.login->person, 7);
  EXPECT_EQ(login.login->rights.Name(), name);
  EXPECT_FALSE(LogIn(database_, name, "s3cret", kNow));
  EXPECT_FALSE(LogIn(database_, name, "", kNow));
  EXPECT_FALSE(LogIn(database_, "nobody", "s3cret", kNow));
  EXPECT_TRUE(LogIn(database_, "OTHER", "s3cret", kNow)) << "login names compare without regard to case";
  EXPECT_FALSE(LogIn(database_, "other", "S3CRET", kNow));
}

TEST_F(LoginsTest, ThePasswordItselfIsNotKept) {
  Add("kept", {1}, {});
  const std::string stored = Ask(practice_, "SELECT PWMPasWor FROM PWMTable");
  EXPECT_EQ(stored.find("s3cret"), std::string::npos);
  EXPECT_TRUE(stored.starts_with("$argon2id$")) << stored;
}

TEST_F(LoginsTest, RightsHoldAtTheLocationThatIsOpened) {
  const std::int32_t id = Add("mary", {1, 2}, {"EDIT-EMP-INS", "Change-Ins-Plan-Detail"});
  const data::Statements statements(database_);
  statements.Execute(data::Sql("UPDATE PWATable SET PWAWriFla=0 WHERE OffLocID=2 AND PWAAreOfPro='EDIT-EMP-INS'"));

  const auto primary = LogIn(database_, "mary", "s3cret", kNow);
  ASSERT_TRUE(primary);
  EXPECT_EQ(primary.login->location, 1);
  EXPECT_TRUE(primary.login->rights.Has("edit-emp-ins"));
  EXPECT_TRUE(primary.login->rights.Has("CHANGE-INS-PLAN-DETAIL"));
  EXPECT_FALSE(primary.login->rights.Has("DELETE-PATIENT"));

  const auto second = LogIn(database_, "mary", "s3cret", kNow, 2);
  ASSERT_TRUE(second);
  EXPECT_FALSE(second.login->rights.Has("EDIT-EMP-INS")) << "to see is not to modify";
  EXPECT_TRUE(second.login->rights.Has("Change-Ins-Plan-Detail"));

  EXPECT_FALSE(LogIn(database_, "mary", "s3cret", kNow, 3));
  statements.Execute("UPDATE ealTable SET ealAccLoc=0 WHERE ealPWMID=" + data::Literal(id));
  EXPECT_FALSE(LogIn(database_, "mary", "s3cret", kNow, 2));
  EXPECT_TRUE(LogIn(database_, "mary", "s3cret", kNow, 1)) << "the primary location is always granted";
}

TEST_F(LoginsTest, RefusalsMakeAKnownAndAnUnknownNameWaitAlike) {
  using std::chrono::seconds;
  Add("ann", {1}, {});
  for (const std::string name : {"ann", "nobody"}) {
    const auto refuse = [&](seconds later) { return LogIn(database_, name, "wrong", kNow + later); };
    EXPECT_EQ(refuse(seconds(0)).wait, seconds(0)) << name;
    EXPECT_EQ(refuse(seconds(0)).wait, seconds(0)) << name;
    EXPECT_EQ(refuse(seconds(0)).wait, seconds(1)) << name;
    EXPECT_EQ(refuse(seconds(1)).wait, seconds(2)) << name;
    EXPECT_EQ(refuse(seconds(2)).wait, seconds(1)) << name << ": a try that is not looked at does not count";
    EXPECT_EQ(refuse(seconds(3)).wait, seconds(4)) << name;
    EXPECT_FALSE(LogIn(database_, name, "s3cret", kNow + seconds(5))) << name << ": nor does the right password help";
  }
  EXPECT_TRUE(LogIn(database_, "ann", "s3cret", kNow + seconds(7)));
  EXPECT_EQ(LogIn(database_, "ann", "wrong", kNow + seconds(8)).wait, seconds(0)) << "a login begins anew";
  EXPECT_EQ(LogIn(database_, "nobody", "wrong", kNow + seconds(9999)).wait, seconds(8)) << "and nothing else does";
  EXPECT_EQ(Ask(practice_, "SELECT COUNT(*) FROM ChangeTable WHERE ChaWho LIKE '%nobody%'"), "0")
      << "it may be a password in the wrong field";
}

TEST_F(LoginsTest, NamesAreUniqueAndOlderNamesakesKeepTheirs) {
  Add("ann", {1}, {});
  Add("zoë", {1}, {});
  EXPECT_THROW(Add("ANN", {1}, {}), session::DatabaseError);
  EXPECT_THROW(Add("ZOË", {1}, {}), session::DatabaseError);
  AddLogin(database_, {"bob", HashPassword("one", HashCost::Least), 8, {1}, {}});
  data::Statements(database_).Execute(data::Sql("UPDATE PWMTable SET PWMUseNam='ann', PWMNamesake=1 WHERE PWMPid=8"));
  EXPECT_EQ(LogIn(database_, "ann", "s3cret", kNow).login->person, 7);
  EXPECT_EQ(LogIn(database_, "ann", "one", kNow).login->person, 8);
  EXPECT_FALSE(LogIn(database_, "ann", "two", kNow));
}

TEST_F(LoginsTest, TheFirstIsMadeOnce) {
  EXPECT_TRUE(AddFirstLogin(practice_, 1, "ann", HashPassword("one", HashCost::Least)));
  EXPECT_FALSE(AddFirstLogin(practice_, 1, "bob", HashPassword("two", HashCost::Least)));
  EXPECT_TRUE(LogIn(database_, "ann", "one", kNow).login->rights.Supervisor());
  EXPECT_FALSE(LogIn(database_, "bob", "two", kNow));
}

TEST_F(LoginsTest, ASupervisorHasEveryRight) {
  Add("boss", {1}, {std::string(kSupervisorRight)});
  const auto boss = LogIn(database_, "boss", "s3cret", kNow);
  ASSERT_TRUE(boss);
  for (const session::Right& right : RightsCatalogue()) {
    EXPECT_TRUE(boss.login->rights.Has(right.keyword)) << right.keyword;
  }
  LoginRights rights("boss", true);
  rights.Revoke("tavo-sup-rig");
  EXPECT_FALSE(rights.Has("DELETE-PATIENT"));
}

TEST(OfficesOfLogins, ALoginOpensItsOwnOfficeOnly) {
  Practice practice = CreatePractice(kMemory, {.kind = session::kOfficeScoped, .offices = 2});
  OfficeDatabase first(practice, 1);
  OfficeDatabase second(practice, 2);
  AddLogin(first, {"ann", HashPassword("one", HashCost::Least), 0, {1}, {}});
  EXPECT_TRUE(LogIn(first, "ann", "one", kNow));
  EXPECT_FALSE(LogIn(second, "ann", "one", kNow));
}

}  // namespace
}  // namespace host
