#include "console/scenario_runner.h"

#include <fstream>

#include "console/interpreter.h"
#include "console/line_source.h"
#include "database/file_path.h"

namespace host {

std::optional<StepFailure> PlayScenario(const Scenario& scenario, std::ostream& output, const RunOptions& options) {
  try {
    if (!scenario.head.error.empty()) {
      throw StepFailure{.problem = scenario.head.error, .place = scenario.head.Place()};
    }
    BlockLines lines(scenario.lines);
    const auto make_first = [](Interpreter& owner) {
      return std::make_unique<Stage>(MakePractice(owner.Unnamed), FirstClock(), owner.Person(), owner.Heard(),
                                     owner.ToScreens);
    };
    Interpreter interpreter(lines, make_first, &output);
    interpreter.ToScreens = options.to_screens;
    interpreter.Unnamed = options.unnamed;
    interpreter.ChecksStatements = options.checks_statements;
    interpreter.Run();
    return std::nullopt;
  } catch (const StepFailure& failure) {
    return failure;
  }
}

Tally RunScenarios(std::istream& text, const std::string& file, std::ostream& output, const RunOptions& options) {
  Tally tally;
  const auto scenarios = ReadScenarios(text, file);
  if (scenarios.empty()) {
    ++tally.failed;
    output << "FAILED  " << file << " holds no scenario\n";
  }
  for (const Scenario& scenario : scenarios) {
    const auto failure = PlayScenario(scenario, output, options);
    ++(failure ? tally.failed : tally.passed);
    output << (failure ? "FAILED  " : "passed  ") << scenario.title << "\n" << (failure ? Describe(*failure) : "");
  }
  return tally;
}

Tally RunScenarioFiles(const std::vector<std::string>& files, std::ostream& output, const RunOptions& options) {
  Tally all;
  for (const std::string& file : files) {
    const std::filesystem::path path = FilePath(file);
    std::ifstream text(path, std::ios::binary);
    Tally tally{.failed = 1};
    if (!text || std::filesystem::is_directory(path)) {
      output << "FAILED  " << file << " cannot be read\n";
    } else {
      tally = RunScenarios(text, file, output, options);
    }
    all.passed += tally.passed;
    all.failed += tally.failed;
  }
  output << all.passed << " passed, " << all.failed << " failed" << std::endl;
  return all;
}

}  // namespace host
