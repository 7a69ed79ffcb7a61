#pragma once

#include <span>
#include <string>
#include <string_view>

#include "console/interpreter.h"
#include "console/step_words.h"

namespace host {

enum class StepKind { SetUp, Call, Act, Answer, Check };

// A word of the scenario language.
struct Step {
  std::string_view name;
  StepKind kind;
  std::string_view usage;  // what stands behind the name
  std::string_view help;
  // Takes the words behind the name. Throws StepFailure.
  void (*run)(Interpreter& interpreter, StepWords& words);
};

std::span<const Step> SettingUpSteps();
std::span<const Step> CallingSteps();
std::span<const Step> ActingSteps();
std::span<const Step> ChoosingSteps();
std::span<const Step> AnsweringSteps();
std::span<const Step> ScreenCheckSteps();
std::span<const Step> RecordCheckSteps();

// Nullptr when there is no such step.
const Step* FindStep(std::string_view name);
// One line a step, by group.
std::string StepHelp();

}  // namespace host
