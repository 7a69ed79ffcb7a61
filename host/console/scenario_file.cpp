#include "console/scenario_file.h"

#include <algorithm>

namespace host {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

std::vector<Scenario> ReadScenarios(std::istream& text, const std::string& file) {
  std::vector<Scenario> scenarios;
  std::string written;
  for (int number = 1; std::getline(text, written); ++number) {
    if (number == 1 && written.starts_with(kByteOrderMark)) {
      written.erase(0, kByteOrderMark.size());
    }
    Line line = ReadLine(written, file, number);
    if (line.Is("scenario")) {
      scenarios.push_back({.title = line.words.size() > 1 ? line.words[1].text : "", .head = line, .lines = {}});
      if (line.words.size() != 2) {
        scenarios.back().head.error = "a scenario has one title, in double quotes";
      }
    } else if (!line.Blank()) {
      if (scenarios.empty()) {
        scenarios.push_back({.title = "", .head = line, .lines = {}});
        scenarios.back().head.error = "the line stands before the first scenario";
      }
      scenarios.back().lines.push_back(std::move(line));
    }
  }
  for (Scenario& scenario : scenarios) {
    std::stable_partition(scenario.lines.begin(), scenario.lines.end(),
                          [](const Line& line) { return line.Is("practice"); });
  }
  return scenarios;
}

}  // namespace host
