#include "console/steps.h"

#include <array>

namespace host {
namespace {

struct Group {
  std::string_view title;
  std::span<const Step> (*steps)();
};

constexpr std::array kGroups = {
    Group{"Setting up", SettingUpSteps},
    Group{"Calling", CallingSteps},
    Group{"Acting", ActingSteps},
    Group{"Choosing", ChoosingSteps},
    Group{"Answering", AnsweringSteps},
    Group{"Checking the screen", ScreenCheckSteps},
    Group{"Checking records", RecordCheckSteps},
};

}  // namespace

const Step* FindStep(std::string_view name) {
  for (const Group& group : kGroups) {
    for (const Step& step : group.steps()) {
      if (step.name == name) {
        return &step;
      }
    }
  }
  return nullptr;
}

std::string StepHelp() {
  constexpr std::size_t kColumn = 46;
  std::string text;
  for (const Group& group : kGroups) {
    text += std::string(group.title) + "\n";
    for (const Step& step : group.steps()) {
      std::string line = "  " + std::string(step.name) + " " + std::string(step.usage);
      line.resize(line.size() < kColumn ? kColumn : line.size() + 1, ' ');
      text += line + std::string(step.help) + "\n";
    }
  }
  return text;
}

}  // namespace host
