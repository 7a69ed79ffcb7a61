#include "console/scenario_runner.h"

#include <sstream>

namespace host {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

struct Outcome {
  Tally tally;
  std::string output;
};

Outcome RunText(const std::string& text, const RunOptions& options = {}) {
  std::istringstream input(text);
  std::ostringstream output;
  Outcome outcome;
  outcome.tally = RunScenarios(input, "test.scn", output, options);
  outcome.output = output.str();
  return outcome;
}

// Expects that every block passes.
void ExpectPassed(const std::string& text, int blocks) {
  const Outcome outcome = RunText(text);
  EXPECT_EQ(outcome.tally.passed, blocks) << outcome.output;
  EXPECT_EQ(outcome.tally.failed, 0) << outcome.output;
}

TEST(ScenarioRunner, BlocksAreIsolated) {
  ExpectPassed(
      "scenario \"writes\"\n"
      "  sql \"INSERT INTO ZipCodTable (ZipCodID, ZipCodCit) VALUES (1, 'Spring''field')\"\n"
      "  let ID = \"SELECT ZipCodID FROM ZipCodTable\"\n"
      "  query \"SELECT ZipCodID, ZipCodCit, ZipCodSta FROM ZipCodTable WHERE ZipCodID=${ID}\" = "
      "\"1|Spring'field|(null)\"\n"
      "  file STP/a.txt \"a\\nb\"\n"
      "  text-file STP/a.txt = \"a\\nb\"\n"
      "scenario \"finds nothing of it\"\n"
      "  query \"SELECT * FROM ZipCodTable\" = none\n",
      2);
}

TEST(ScenarioRunner, APracticeStandsBeforeWhatSetsItUp) {
  ExpectPassed(
      "scenario \"an office-scoped practice\"\n"
      "  clock \"2026-11-21 14:05:00\"\n"
      "  setting DEFAULT_OFFICE_SETUP PAT_AC_TYP 3\n"
      "  practice empty kind 7 office 2 offices 3\n"
      "  query \"SELECT OfficeID FROM OffLocTable ORDER BY OfficeID\" = 1 2 3\n"
      "  statements = 0\n",
      1);
}

TEST(ScenarioRunner, WrongChecksFail) {
  const std::vector<std::string> steps = {R"(query "SELECT COUNT(*) FROM PATable" = 1)",
                                          R"(query "SELECT pID FROM PATable" = "")",
                                          R"(sql "DELETE * FROM NoTable")",
                                          R"(let ID = "SELECT pID FROM PATable")",
                                          R"(said "Please wait")",
                                          "statement ~ *",
                                          "statements = 1",
                                          "log CM ~ *",
                                          "handed pID PaTable 1",
                                          "started ~ *",
                                          "event ButtonClicked",
                                          "event Nothing",
                                          "no event Nothing",
                                          "no query",
                                          "next ~ *",
                                          "person-type pTypPat",
                                          "sent Letter ~ *",
                                          "sending slowly",
                                          "starting slowly",
                                          "handler CheckEvent bCancel=True",
                                          "handler CheckEvent bHandled=perhaps",
                                          "new Host Second",
                                          "new LookUpList EditingScreen",
                                          "new LookUpList A.B",
                                          "call Second.ShowList",
                                          "set LookUpList.PV Another",
                                          "call Host.EnterPatient ids=perhaps",
                                          "office two",
                                          R"(text-file STP/none.txt = "")",
                                          "file ../out.txt x",
                                          "file /tmp/out.txt x",
                                          R"(file "a\\b.txt" x)",
                                          "no file STP/../../out.txt",
                                          "result l_ID = NEW",
                                          "form patScreen_SM",
                                          "click cmdOK",
                                          "call EditingScreen.Nothing",
                                          "call EditingScreen.Load_PatInfo_Small patient=NEW",
                                          "set LookUpList.Nothing 1",
                                          "open frmNothing",
                                          "practice empty engine nothing",
                                          "clock tomorrow",
                                          R"(expect "unclosed)"};
  std::string text;
  for (const std::string& step : steps) {
    text += "scenario \"fails\"\n" + step + "\n";
  }
  const Outcome outcome = RunText(text);
  EXPECT_EQ(outcome.tally.passed, 0) << outcome.output;
  EXPECT_EQ(outcome.tally.failed, static_cast<int>(steps.size()));
}

TEST(ScenarioRunner, VariablesArePutInOnceAndBounded) {
  ExpectPassed(
      "scenario \"a value that looks like a variable\"\n"
      "  let A = \"SELECT '$'+'{B}'\"\n"
      "  let B = \"SELECT '${A}'+'${A}'\"\n"
      "  query \"SELECT '${B}'\" = \"${A}${A}\"\n",
      1);
  std::string doubling = "scenario \"fails\"\nlet A = \"SELECT 'x'\"\n";
  for (int i = 0; i < 40; ++i) {
    doubling += "let A = \"SELECT '${A}${A}'\"\n";
  }
  EXPECT_THAT(RunText(doubling).output, HasSubstr("test.scn:22: let A = \"SELECT '${A}${A}'\"\n  with its variables"));
}

TEST(ScenarioRunner, ScreensInOneAnotherAreBounded) {
  std::string nested = "scenario \"fails\"\n";
  for (int i = 0; i < 1000; ++i) {
    nested += "open frmGallery\n";
  }
  EXPECT_THAT(RunText(nested).output, HasSubstr("test.scn:102: open frmGallery\n  more than 100 screens"));
}

// What a block leaves in the component is not there in the next.
TEST(ScenarioRunner, TheSlotsOfTheComponentStartEmpty) {
  ExpectPassed(
      "scenario \"fills\"\n"
      "  set LookUpList.DAC Data\n"
      "  set EditingScreen.PV Nothing\n"
      "  call LookUpList.SetPrinter PN=Front\n"
      "  new EditingScreen Second\n"
      "  result Second.DAC = Data\n"
      "scenario \"finds nothing of it\"\n"
      "  result EditingScreen.DAC = Nothing\n"
      "  result LookUpList.PV = Session\n"
      "  call EditingScreen.GetPrinter\n"
      "  result PN = \"\"\n"
      "  new EditingScreen Second\n",
      2);
}

TEST(ScenarioRunner, ABlockThatNamesNoEnginePlaysOnTheOneGiven) {
  const std::string text =
      "scenario \"one\"\n  query \"SELECT pID FROM PATable\" = none\n"
      "scenario \"two\"\n  practice empty\n"
      "scenario \"three\"\n  practice empty engine sqlite\n";
  EXPECT_EQ(RunText(text).tally.passed, 3);
  const Outcome outcome = RunText(text, {.unnamed = {.engine = "nothing"}});
  EXPECT_EQ(outcome.tally.passed, 1) << outcome.output;
  EXPECT_THAT(outcome.output, HasSubstr("practice empty\n  there is no engine nothing\n"));
}

TEST(ScenarioRunner, OtherKindsOfPracticesHaveTheirOwnStatements) {
  const std::string text =
      "scenario \"one\"\n  sql \"INSERT INTO EmpTable (EmpInd, EmpNam) VALUES (1, 'Mill')\"\n"
      "  statements = 7\n  statement ~ *\n  next statement ~ *\n  no statement ~ *\n"
      "  query \"SELECT EmpNam FROM EmpTable WHERE OfficeID=1\" = Mill\n";
  EXPECT_EQ(RunText(text).tally.passed, 0);
  RunOptions options{.checks_statements = false};
  EXPECT_EQ(RunText(text, options).tally.passed, 1);
  options.unnamed.options.office = 2;
  EXPECT_EQ(RunText(text, options).tally.passed, 0);
}

TEST(ScenarioRunner, AFailingStepEndsItsBlockAlone) {
  const Outcome outcome = RunText(
      "scenario \"one\"\n"
      "  statements = 1\n"
      "  nonsense\n"
      "scenario \"two\"\n"
      "  statements = 0\n");
  EXPECT_EQ(outcome.tally.passed, 1);
  EXPECT_EQ(outcome.tally.failed, 1);
  EXPECT_THAT(outcome.output, HasSubstr("FAILED  one\ntest.scn:2: statements = 1\n"));
  EXPECT_THAT(outcome.output, EndsWith("passed  two\n"));
}

TEST(ScenarioRunner, WhatHoldsNoBlockFails) {
  EXPECT_EQ(RunText("# nothing\n").tally.failed, 1);
  EXPECT_EQ(RunText("done\nscenario \"two\"\n").tally.failed, 1);
  EXPECT_EQ(RunText("scenario without quotes\n").tally.failed, 1);
  std::ostringstream output;
  EXPECT_EQ(RunScenarioFiles({"no/such.scn"}, output).failed, 1);
  EXPECT_THAT(output.str(), EndsWith("\n0 passed, 1 failed\n"));
}

}  // namespace
}  // namespace host
