#pragma once

#include <optional>
#include <sstream>
#include <string>

#include "console/interpreter.h"
#include "console/line_source.h"
#include "console/scenario_file.h"
#include "host/console/sample_form.h"

namespace host {

// Plays lines on a `SampleForm`. The text of the failure; empty when there was none.
inline std::string Play(const std::string& lines, std::ostream* output = nullptr) {
  std::istringstream text("scenario \"test\"\n" + lines);
  BlockLines source(ReadScenarios(text, "test.scn").at(0).lines);
  const auto no_stage = [](Interpreter&) -> std::unique_ptr<Stage> { throw std::logic_error("no stage"); };
  Interpreter interpreter(source, no_stage, output);
  try {
    SampleForm form(interpreter.Person());
    interpreter.Person().Show(form);
    interpreter.Run();
  } catch (const StepFailure& failure) {
    return Describe(failure);
  }
  return {};
}

}  // namespace host
