#include <sstream>

#include "console/interpreter.h"
#include "console/line_source.h"
#include "console/practice_line.h"
#include "console/scenario_file.h"

namespace host {
namespace {

using testing::HasSubstr;

// Plays lines on a stage whose session has been asked for one thing of each kind. The failure; empty for none.
std::string PlayAfterwards(const std::string& lines) {
  std::istringstream text("scenario \"test\"\n" + lines);
  BlockLines source(ReadScenarios(text, "test.scn").at(0).lines);
  Interpreter interpreter(source, [](Interpreter& owner) {
    auto stage = std::make_unique<Stage>(MakePractice({}), FirstClock(), owner.Person(), owner.Heard());
    RecordingSession& session = stage->Session();
    session.PrepareSQL("SELECT 1", 1);
    session.PrepareSQL("SELECT 2", 1);
    session.PrepareSQL("SELECT 1 AS One", 1);
    session.SetCurrentPersonType("pTypDoc");
    session.SetCurrentPersonType("pTypEmp");
    session.SendReminder({session::ReminderMessage::Method::Email, "a@b.example", "Recall", "Your recall is due."});
    session.RecordHandOff("InsCoID", "InsCoTable", 12);
    session.Log({session::LogKind::Comment, "", 5, "Coverage ended\r\nby JANE"});
    session.Log({session::LogKind::Change, "LogInsCo", 0, "Aetna was renamed"});
    session.StartProgram("FXRECALL.EXE /S /ID=3");
    owner.Person().Wait("  Loading - Please Wait  ", 0.5);
    owner.Person().Wait("", -1);
    owner.Heard().events.push_back({"ButtonClicked", {"Patient", "5"}});
    return stage;
  });
  try {
    interpreter.World();
    interpreter.Run();
  } catch (const StepFailure& failure) {
    return Describe(failure);
  }
  return {};
}

TEST(RecordChecks, FindWhatWasAskedOfTheSession) {
  EXPECT_EQ(PlayAfterwards("statement = \"SELECT 1\"\n"
                           "statements = 3\n"
                           "no statement ~ *OfficeID*\n"
                           "person-type pTypEmp\n"
                           "sent E-MAIL ~ \"a@b.example\\nRecall\\n*recall*\"\n"
                           "no event ButtonClicked Trans\n"
                           "no event AfterPrint\n"
                           "no file STP/none.txt\n"
                           "handed inscoid INSCOTABLE 12\n"
                           "log CM ~ \"Coverage ended\\nby *\"\n"
                           "log LogInsCo = \"Aetna was renamed\"\n"
                           "started ~ \"*FXRECALL.EXE /S /ID=*\"\n"
                           "said \"  Loading - Please Wait  \"\n"
                           "event ButtonClicked Patient\n"
                           "event ButtonClicked Patient 5\n"
                           "query \"SELECT COUNT(*) FROM LogTable\" = 2\n"
                           "statements = 3\n"
                           "forget\n"
                           "no started\n"
                           "no event ButtonClicked\n"
                           "person-type pTypEmp\n"),
            "");
}

TEST(RecordChecks, FindStatementsInTheirOrder) {
  EXPECT_EQ(PlayAfterwards("next statement = \"SELECT 1\"\n"
                           "next statement = \"SELECT 2\"\n"
                           "statement ~ \"SELECT 1*\"\n"
                           "next statement ~ \"SELECT 1*\"\n"),
            "");
  EXPECT_EQ(PlayAfterwards("statement = \"SELECT 2\"\nnext statement ~ \"SELECT 2*\""),
            "test.scn:3: next statement ~ \"SELECT 2*\"\n  expected: a later statement ~ \"SELECT 2*\"\n"
            "  was:      1\n    \"SELECT 1 AS One\"\n");
}

// A session whose reminder service takes no message keeps none either.
TEST(RecordChecks, WhatTheReminderServiceRefusesIsNotSent) {
  Recordings recordings;
  BlockLines no_lines({});
  Interpreter nobody(no_lines, nullptr);
  Stage stage(MakePractice({}), FirstClock(), nobody.Person(), recordings);
  stage.Session().takes_messages = false;
  EXPECT_FALSE(stage.Session().SendReminder({}));
  EXPECT_TRUE(recordings.sent.empty());
}

TEST(RecordChecks, FindNothingElse) {
  for (const std::string line :
       {"statements = 2", "person-type pTypDoc", "sent Letter ~ *", "sent e-Mail ~ Hello*", "forget\nsent e-Mail ~ *",
        "no event ButtonClicked Patient", "no started", "file STP/a.txt x\nno file STP/a.txt", "no statement ~ *",
        "handed InsCoID InsCoTable 1", "log LogInsCo ~ *Coverage*", "log INS_LOG ~ *", "started ~ FXRECALL",
        "said Loading", "event ButtonClicked Trans", "forget\nlog CM ~ *", "forget\nsaid ~ *",
        "forget\nhanded InsCoID InsCoTable 12"}) {
    EXPECT_THAT(PlayAfterwards(line), HasSubstr("  expected: ")) << line;
  }
}

}  // namespace
}  // namespace host
