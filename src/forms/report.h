#pragma once

#include <memory>
#include <string>
#include <vector>

#include "forms/grid.h"

namespace forms {

// A table to print.
struct Report {
  std::string title;
  std::vector<std::string> notes = {};  // under the title: what the rows are
  std::string office = {};
  std::string printed = {};              // when, and by whom
  std::vector<GridColumn> columns = {};  // those that are printed, each with its `cell`
  std::shared_ptr<GridRows> rows = {};
  std::string printer = {};  // by name; empty for the one that the machine prints on
};

}  // namespace forms
