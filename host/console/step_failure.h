#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace host {

// A step that could not be done, or a check that did not hold. No std::exception, so that no rule on the way from the
// step to the block takes it for a failure of its own.
struct StepFailure {
  std::string problem;
  // Of a check; empty otherwise.
  std::string expected = {};
  std::string was = {};
  // Filled in where the step ran: "file:line: the line", and the topmost screen's name and the controls that the step
  // speaks of, empty when no screen is open.
  std::string place = {};
  std::string screen = {};
};

// There are no more lines.
struct EndOfInput {};

[[noreturn]] inline void Fail(std::string problem) {
  throw StepFailure{.problem = std::move(problem)};
}
[[noreturn]] inline void Differ(std::string expected, std::string was) {
  throw StepFailure{.problem = {}, .expected = std::move(expected), .was = std::move(was)};
}

// As the failure texts show a value: in double quotes, line breaks and tabs escaped.
std::string Quoted(std::string_view text);

}  // namespace host
