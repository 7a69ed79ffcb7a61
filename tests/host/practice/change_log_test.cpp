#include "practice/change_log.h"

#include <gmock/gmock.h>

#include "host/practice/practice_fixture.h"
#include "practice/host_session.h"

namespace host {
namespace {

std::vector<std::string> Changes(session::Database& database, const ChangeFilter& filter = {}) {
  std::vector<std::string> lines;
  ChangeReader reader(database, filter);
  while (const auto change = reader.Next()) {
    lines.push_back(change->who + " " + change->what + " " + change->table + " " + std::to_string(change->record) +
                    " " + change->column + " [" + change->before + "][" + change->after + "]");
  }
  return lines;
}

TEST(ChangeLog, HoldsWhatSessionsWroteButNoSecrets) {
  Practice practice = CreatePractice("sqlite::memory:");
  OfficeDatabase office(practice, 1);
  HostSession session(practice, 1, LoginRights("ann"), StandingStill());
  const auto run = [&](const std::string& sql) { session.Connection().Execute(session.PrepareSQL(sql, 1)); };
  run("INSERT INTO PATable (pLASNAM) VALUES ('Reed')");
  EXPECT_EQ(session::ToId(session.Connection().Execute(session.PrepareSQL("SELECT @@IDENTITY", 1))->Get(0)), 1)
      << "the row's ID, not the log's";
  run("INSERT INTO PATable (pID, pLASNAM) VALUES (7, 'Lee')");
  run("UPDATE PATable SET pLASNAM='reed', pFIRNAM='', pADD1='O''Hara' WHERE pID=1");
  session.User() = LoginRights("bob");
  run("UPDATE PATable SET pLASNAM='reed' WHERE pID=1");
  run("UPDATE PATable SET pCRECARNUM='4000 0000 0000 0002' WHERE pID=7");
  run("DELETE FROM PATable WHERE pID=7");
  run("INSERT INTO PWMTable (PWMUseNam, PWMPasWor) VALUES ('kim', 's3cret')");
  run("UPDATE PWMTable SET PWMPasWor='other' WHERE PWMID=1");
  run("INSERT INTO ZipCodTable (ZipCodCit) VALUES ('Boston')");
  EXPECT_THAT(
      Changes(office),
      testing::IsSupersetOf({"ann added PATable 1 pLASNAM [][Reed]", "ann added PATable 7 pLASNAM [][Lee]",
                             "ann changed PATable 1 pLASNAM [Reed][reed]", "ann changed PATable 1 pADD1 [][O'Hara]",
                             "bob changed PATable 7 pCRECARNUM [][]", "bob deleted PATable 7 pLASNAM [Lee][]",
                             "bob deleted PATable 7 pCRECARNUM [][]", "bob added PWMTable 1 PWMUseNam [][kim]",
                             "bob added PWMTable 1 PWMPasWor [][]", "bob changed PWMTable 1 PWMPasWor [][]"}));
  EXPECT_THAT(Changes(office, {.who = "bob", .table = "PATable", .record = 1}), testing::IsEmpty());
  EXPECT_THAT(Changes(office, {.record = 7}), testing::SizeIs(testing::Ge(2U)));
  EXPECT_THAT(Changes(office, {.table = "ZipCodTable"}), testing::IsEmpty());
}

}  // namespace
}  // namespace host
