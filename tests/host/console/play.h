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
inline std::string Play(const std::string& lines) {
  std::istringstream text("scenario \"test\"\n" + lines);
  BlockLines source(ReadScenarios(text, "test.scn").at(0).lines);
  Interpreter interpreter(source, [](Interpreter&) -> std::unique_ptr<Stage> { throw std::logic_error("no stage"); });
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
