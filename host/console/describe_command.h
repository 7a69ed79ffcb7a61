#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "forms/form.h"

namespace host {

// One line a control, in reading order: its name, kind, caption, database column, tip and container, parted by tabs;
// what a control does not have is empty. Line breaks and tabs in a caption or tip are written `\n` and `\t`. The
// caption of a grid are those of its visible columns, and of a tab strip those of its pages, joined by "|".
std::string DescribeControls(const forms::Form& form);

// The controls of the form of that name; without one, of all forms, each below its name and parted by a blank line.
// Throws std::invalid_argument when there is no such form.
void RunDescribe(const std::optional<std::string>& form_name, std::ostream& output);

}  // namespace host
