#include <sstream>

#include "console/interpreter.h"
#include "console/scenario_file.h"

namespace {

// Every flow that issues statements, by its own words.
constexpr const char* kFlows = R"(
  user JANE supervisor
  call EditingScreen.Load_PatInfo_Small l_ID=NEW ns_ID="Smith, John"
    type Text1(2) 01021980
    type Text1(11) "Springfield IL 62701"
    click ZipCode_Cmd(0)
    answer Yes
    type Text1(13) 62
    pick ZIPCode_Combo #0
    type Text1(11) Spr
    press ZIPCode_Combo Delete
    answer Yes
    answer Yes
    enter Text1(5)
    type dbcNameSearch "Reed, Ann"
    press dbcNameSearch Enter
    press Text1(14) F9
      filter DotNetGrid Name Cl
      click DialogButtons1.Cancel
    press Text1(3) F9
      click DialogButtons1.Cancel
    press Text1(15) F9
      click DialogButtons1.Cancel
    click cmdContact
    answer Yes
      type txtWork(5) "john@smith.example"
      choose optWork(5)
      click DialogButtons1.OK
    type Text1(9) "1 Main St"
    click DialogButtons1.OK
    answer Yes
  result l_ID ~ "*"
)";

std::string AllLists() {
  std::string steps;
  for (int kind = 0; kind < 14; ++kind) {
    steps += "  set LookUpList.ListType " + std::to_string(kind) + "\n  call LookUpList.ShowList\n    close\n";
  }
  return steps + "  open frmDatabaseSearch SearchText=\"Smi, J\"\n    close\n";
}

std::vector<std::string> StatementsOf(const std::string& practice) {
  std::istringstream text("scenario \"flows\"\n  practice " + practice + kFlows + AllLists());
  host::BlockLines lines(host::ReadScenarios(text, "flows").at(0).lines);
  host::Interpreter interpreter(lines, nullptr);
  try {
    interpreter.Run();
  } catch (const host::StepFailure& failure) {
    ADD_FAILURE() << host::Describe(failure);
  }
  EXPECT_GT(interpreter.Heard().statements.size(), 30U);
  return interpreter.Heard().statements;
}

TEST(OfficeCondition, StandsInEveryStatementOfAnOfficeScopedDatabase) {
  for (const std::string& statement : StatementsOf("demo kind 7 office 2 offices 2")) {
    EXPECT_THAT(statement, testing::HasSubstr("OfficeID")) << statement;
  }
}

TEST(OfficeCondition, IsNowhereOnADatabaseOfOneOffice) {
  for (const std::string& statement : StatementsOf("demo kind 1")) {
    EXPECT_THAT(statement, testing::Not(testing::HasSubstr("OfficeID"))) << statement;
  }
}

}  // namespace
