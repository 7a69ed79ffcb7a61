#include "console/scenario_runner.h"

#include <fstream>

#include "console/interpreter.h"
#include "console/line_source.h"
#include "console/practice_line.h"
#include "database/file_path.h"

namespace host {

std::optional<StepFailure> PlayScenario(const Scenario& scenario, const SessionPath& to_screens) {
  try {
    if (!scenario.head.error.empty()) {
      throw StepFailure{.problem = scenario.head.error, .place = scenario.head.Place()};
    }
    BlockLines lines(scenario.lines);
    Interpreter interpreter(lines, [](Interpreter& owner) {
      return std::make_unique<Stage>(MakePractice({}), FirstClock(), owner.Person(), owner.Heard(), owner.ToScreens);
    });
    interpreter.ToScreens = to_screens;
    interpreter.Run();
    return std::nullopt;
  } catch (const StepFailure& failure) {
    return failure;
  }
}

Tally RunScenarios(std::istream& text, const std::string& file, std::ostream& output, const SessionPath& to_screens) {
  Tally tally;
  const auto scenarios = ReadScenarios(text, file);
  if (scenarios.empty()) {
    ++tally.failed;
    output << "FAILED  " << file << " holds no scenario\n";
  }
  for (const Scenario& scenario : scenarios) {
    const auto failure = PlayScenario(scenario, to_screens);
    ++(failure ? tally.failed : tally.passed);
    output << (failure ? "FAILED  " : "passed  ") << scenario.title << "\n" << (failure ? Describe(*failure) : "");
  }
  return tally;
}

Tally RunScenarioFiles(const std::vector<std::string>& files, std::ostream& output, const SessionPath& to_screens) {
  Tally all;
  for (const std::string& file : files) {
    const std::filesystem::path path = FilePath(file);
    std::ifstream text(path, std::ios::binary);
    Tally tally{.failed = 1};
    if (!text || std::filesystem::is_directory(path)) {
      output << "FAILED  " << file << " cannot be read\n";
    } else {
      tally = RunScenarios(text, file, output, to_screens);
    }
    all.passed += tally.passed;
    all.failed += tally.failed;
  }
  output << all.passed << " passed, " << all.failed << " failed" << std::endl;
  return all;
}

}  // namespace host
