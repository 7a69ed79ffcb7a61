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
                           "statements = 1\n"
                           "no statement ~ *OfficeID*\n"
                           "handed inscoid INSCOTABLE 12\n"
                           "log CM ~ \"Coverage ended\\nby *\"\n"
                           "log LogInsCo = \"Aetna was renamed\"\n"
                           "started ~ \"*FXRECALL.EXE /S /ID=*\"\n"
                           "said \"  Loading - Please Wait  \"\n"
                           "event ButtonClicked Patient\n"
                           "event ButtonClicked Patient 5\n"
                           "query \"SELECT COUNT(*) FROM LogTable\" = 2\n"
                           "statements = 1\n"),
            "");
}

TEST(RecordChecks, FindNothingElse) {
  for (const std::string line :
       {"statements = 2", "no statement ~ *", "handed InsCoID InsCoTable 1", "log LogInsCo ~ *Coverage*",
        "log INS_LOG ~ *", "started ~ FXRECALL", "said Loading", "event ButtonClicked Trans", "forget\nlog CM ~ *",
        "forget\nsaid ~ *", "forget\nhanded InsCoID InsCoTable 12"}) {
    EXPECT_THAT(PlayAfterwards(line), HasSubstr("  expected: ")) << line;
  }
}

}  // namespace
}  // namespace host
