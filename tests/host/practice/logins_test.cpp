#include "practice/logins.h"

#include <gtest/gtest.h>

#include "data/literal.h"
#include "data/statements.h"
#include "host/practice/practice_fixture.h"

namespace host {
namespace {

const std::string kMemory = "sqlite::memory:";

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

  const auto login = LogIn(database_, name, "pass word é");
  ASSERT_TRUE(login);
  EXPECT_EQ(login->login, id);
  EXPECT_EQ(login->person, 7);
  EXPECT_EQ(login->rights.Name(), name);
  EXPECT_FALSE(LogIn(database_, name, "s3cret"));
  EXPECT_FALSE(LogIn(database_, name, ""));
  EXPECT_FALSE(LogIn(database_, "nobody", "s3cret"));
  EXPECT_TRUE(LogIn(database_, "OTHER", "s3cret")) << "login names compare without regard to case";
  EXPECT_FALSE(LogIn(database_, "other", "S3CRET"));
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

  const auto primary = LogIn(database_, "mary", "s3cret");
  ASSERT_TRUE(primary);
  EXPECT_EQ(primary->location, 1);
  EXPECT_TRUE(primary->rights.Has("edit-emp-ins"));
  EXPECT_TRUE(primary->rights.Has("CHANGE-INS-PLAN-DETAIL"));
  EXPECT_FALSE(primary->rights.Has("DELETE-PATIENT"));

  const auto second = LogIn(database_, "mary", "s3cret", 2);
  ASSERT_TRUE(second);
  EXPECT_FALSE(second->rights.Has("EDIT-EMP-INS")) << "to see is not to modify";
  EXPECT_TRUE(second->rights.Has("Change-Ins-Plan-Detail"));

  EXPECT_FALSE(LogIn(database_, "mary", "s3cret", 3));
  statements.Execute("UPDATE ealTable SET ealAccLoc=0 WHERE ealPWMID=" + data::Literal(id));
  EXPECT_FALSE(LogIn(database_, "mary", "s3cret", 2));
  EXPECT_TRUE(LogIn(database_, "mary", "s3cret", 1)) << "the primary location is always granted";
}

TEST_F(LoginsTest, ASupervisorHasEveryRight) {
  Add("boss", {1}, {std::string(kSupervisorRight)});
  const auto boss = LogIn(database_, "boss", "s3cret");
  ASSERT_TRUE(boss);
  for (const Right& right : RightsCatalogue()) {
    EXPECT_TRUE(boss->rights.Has(right.keyword)) << right.keyword;
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
  EXPECT_TRUE(LogIn(first, "ann", "one"));
  EXPECT_FALSE(LogIn(second, "ann", "one"));
}

}  // namespace
}  // namespace host
