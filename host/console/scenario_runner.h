#pragma once

#include <istream>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "console/practice_line.h"
#include "console/scenario_file.h"
#include "console/stage.h"
#include "console/step_failure.h"

namespace host {

struct Tally {
  int passed = 0;
  int failed = 0;
};

struct RunOptions {
  PracticeLine unnamed = {};  // what the practices are of blocks that do not say so
  bool checks_statements = true;
  SessionPath to_screens = {};
};

// Plays one block on a practice of its own. The failure that ended it; nothing when it passed.
std::optional<StepFailure> PlayScenario(const Scenario& scenario, std::ostream& output, const RunOptions& options = {});

// Plays every block of a text and tells of each. A text without a block counts as failed.
Tally RunScenarios(std::istream& text, const std::string& file, std::ostream& output, const RunOptions& options = {});

// Of every file; one that cannot be read counts as failed. Ends with the line "N passed, N failed".
Tally RunScenarioFiles(const std::vector<std::string>& files, std::ostream& output, const RunOptions& options = {});

}  // namespace host
