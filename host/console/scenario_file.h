#pragma once

#include <istream>
#include <string>
#include <vector>

#include "console/line.h"

namespace host {

// A block of a scenario file.
struct Scenario {
  std::string title;
  Line head;
  // The `practice` lines come first, wherever they stand: the other lines set up what they make.
  std::vector<Line> lines;
};

// Lines in front of the first block make a block of their own, which cannot be played. Blank lines and comments are
// left out.
std::vector<Scenario> ReadScenarios(std::istream& text, const std::string& file);

}  // namespace host
