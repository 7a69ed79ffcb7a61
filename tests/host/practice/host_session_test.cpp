#include "practice/host_session.h"

#include <gtest/gtest.h>

#include "host/practice/practice_fixture.h"
#include "practice/accounts.h"
#include "practice/practice_log.h"
#include "practice/settings.h"

namespace host {
namespace {

const std::string kHostile = "'; DROP TABLE LogTable; -- 100% [x] \"ü\" \r\n#1/1/2000#";

class HostSessionTest : public testing::Test {
 protected:
  Practice practice_ = CreatePractice("sqlite::memory:", {.kind = session::kOfficeScoped, .office = 2, .offices = 2});
  HostSession first_{practice_, 1, LoginRights("ann"), StandingStill()};
  HostSession second_{practice_, 2, LoginRights("bob"), StandingStill()};
};

TEST_F(HostSessionTest, EveryOfficeStartsWithDefaultsAndALocation) {
  for (HostSession* session : {&first_, &second_}) {
    EXPECT_EQ(session->OfficeSetting("DEFAULT_OFFICE_SETUP", "INS_ANN_COV"), "1000.00");
    EXPECT_EQ(session->OfficeSetting("default_office_setup", "ins_ren_dat"), "01-01");
    const std::string office = std::to_string(session->CurrentOfficeID());
    EXPECT_EQ(Ask(practice_, "SELECT COUNT(*) FROM OffLocTable WHERE OfficeID=" + office), "1");
    EXPECT_NE(Ask(practice_, "SELECT COUNT(*) FROM PickListTable WHERE OfficeID=" + office), "0");
  }
  EXPECT_EQ(practice_.Offices(), (std::vector<std::int32_t>{1, 2}));
  EXPECT_EQ(practice_.Office(), 2);
}

TEST_F(HostSessionTest, SettingsBelongToTheOfficeAndOptionsToTheUserToo) {
  WriteOfficeSetting(first_.Office(), "DEFAULT_OFFICE_SETUP", "PAT_MED_ALT", kHostile);
  WriteOfficeSetting(first_.Office(), "DEFAULT_OFFICE_SETUP", "PAT_AC_TYP", "2");
  EXPECT_EQ(first_.OfficeSetting("DEFAULT_OFFICE_SETUP", "PAT_MED_ALT"), kHostile);
  EXPECT_EQ(first_.OfficeSetting("DEFAULT_OFFICE_SETUP", "PAT_AC_TYP"), "2");
  EXPECT_EQ(second_.OfficeSetting("DEFAULT_OFFICE_SETUP", "PAT_AC_TYP"), "1");
  EXPECT_EQ(first_.OfficeSetting("DEFAULT_OFFICE_SETUP", "NO_SUCH"), "");

  HostSession other(practice_, 1, LoginRights("cleo"), StandingStill());
  first_.SetUserOption("SESC_LUL", "FILTER", "on");
  first_.SetUserOption("SESC_LUL", "FILTER", kHostile);
  EXPECT_EQ(first_.UserOption("sesc_lul", "filter"), kHostile);
  EXPECT_EQ(other.UserOption("SESC_LUL", "FILTER"), "");
  EXPECT_EQ(second_.UserOption("SESC_LUL", "FILTER"), "");
}

TEST_F(HostSessionTest, LogsKeepWhoWhenAndWhat) {
  first_.Log({session::LogKind::Comment, "LogEmp", 12, kHostile});
  first_.Log({session::LogKind::Insurance, "REPLACE", 0, "answered"});
  second_.Log({session::LogKind::Change, "LogInsCo", 0, "changed"});

  const auto log = ReadLog(first_.Office());
  ASSERT_EQ(log.size(), 2U);
  EXPECT_EQ(log[0].entry.kind, session::LogKind::Comment);
  EXPECT_EQ(log[0].entry.person, 12);
  EXPECT_EQ(log[0].entry.text, kHostile);
  EXPECT_EQ(log[0].user, "ann");
  EXPECT_EQ(log[0].when, kTestClock);
  EXPECT_TRUE(log[0].IsOf("logemp"));
  EXPECT_TRUE(log[0].IsOf("CM"));
  EXPECT_TRUE(log[1].IsOf("INS_LOG"));
  EXPECT_TRUE(log[1].IsOf("REPLACE"));
  EXPECT_FALSE(log[1].IsOf("CM"));
  EXPECT_EQ(ReadLog(second_.Office()).size(), 1U);
}

TEST_F(HostSessionTest, AccountFiguresAreThoseLastReported) {
  const session::AccountFigures figures{forms::Currency::Parse("-12.5").value(), forms::Currency::FromWhole(40),
                                        session::BudgetPlan::Family};
  WriteAccount(first_.Office(), 5, {});
  WriteAccount(first_.Office(), 5, figures);
  EXPECT_EQ(first_.AccountOf(5).balance, figures.balance);
  EXPECT_EQ(first_.AccountOf(5).plan_balance, figures.plan_balance);
  EXPECT_EQ(first_.AccountOf(5).plan, session::BudgetPlan::Family);
  EXPECT_TRUE(second_.AccountOf(5).balance.IsZero());
  EXPECT_EQ(second_.AccountOf(5).plan, session::BudgetPlan::None);
}

TEST_F(HostSessionTest, TheOfficeSaysWhenItsEmployeesWork) {
  EXPECT_EQ(first_.DefaultSchedule(), session::WorkSchedule());
  WriteOfficeSetting(first_.Office(), kOfficeDefaults, kWorkDays, "Mon,Thu-Sat");
  WriteOfficeSetting(first_.Office(), kOfficeDefaults, kWorkStart, "07:30");
  WriteOfficeSetting(first_.Office(), kOfficeDefaults, kWorkEnd, "late");
  EXPECT_EQ(first_.DefaultSchedule(),
            (session::WorkSchedule{0b0111001, std::chrono::minutes(450), std::chrono::hours(17)}));
}

// An engine that keeps the offices apart is told whose statements come, whichever session ran the last.
TEST(OfficesOfAnEngine, EveryStatementIsItsSessionsOffices) {
  PracticeDatabase database = CreateDatabase("sqlite::memory:", {.kind = session::kOfficeScoped, .offices = 2});
  std::vector<int> entered;
  database.enter_office = [&](int office) { entered.push_back(office); };
  Practice practice(std::move(database));
  HostSession first(practice, 1, LoginRights("ann"), StandingStill());
  HostSession second(practice, 2, LoginRights("bob"), StandingStill());
  const auto entered_by = [&](const std::function<void()>& use) {
    entered.clear();
    use();
    return entered.empty() ? -1 : entered.back();
  };
  EXPECT_EQ(entered_by([&] { first.Connection(); }), 1);
  EXPECT_EQ(entered_by([&] { second.OfficeSetting("A", "B"); }), 2);
  EXPECT_EQ(entered_by([&] { first.Log({}); }), 1);
  first.SetOffice(2);
  EXPECT_EQ(entered_by([&] { first.UserOption("A", "B"); }), 2);
  EXPECT_EQ(entered_by([&] { practice.Offices(); }), 0);
}

TEST_F(HostSessionTest, HandOffsAreHeard) {
  std::vector<HandOff> heard;
  first_.OnHandOff = [&](const HandOff& hand_off) { heard.push_back(hand_off); };
  first_.RecordHandOff("EmpInd", "EmpTable", 3);
  second_.RecordHandOff("EmpInd", "EmpTable", 4);
  ASSERT_EQ(heard.size(), 1U);
  EXPECT_EQ(heard[0].table, "EmpTable");
  EXPECT_EQ(heard[0].id, 3);
}

}  // namespace
}  // namespace host
