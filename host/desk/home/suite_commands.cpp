#include "home/suite_commands.h"

#include <algorithm>
#include <array>
#include <utility>

namespace host {
namespace {

using Command = std::pair<std::string_view, std::string_view>;

constexpr std::array kCommands = {
    Command{"Trans", "the patient's transactions"},
    Command{"TransHis", "the patient's transaction history"},
    Command{"FamTab", "the table of the patient's family"},
    Command{"Aging", "the aging table of the family's account"},
    Command{"Notes", "the patient's notes"},
    Command{"PrintEnv", "the printing of an envelope"},
    Command{"Label", "the printing of labels"},
    Command{"LtrQ", "a quick letter to the person"},
    Command{"Image", "the patient's images"},
};

}  // namespace

std::string ToldOfSuite(std::string_view command) {
  const auto* known = std::ranges::find(kCommands, command, &Command::first);
  const std::string_view what = known == kCommands.end() ? command : known->second;
  return "Here the suite would open " + std::string(what) +
         ". Practice Desk has its editing screens alone, so nothing was opened and nothing was changed.";
}

}  // namespace host
