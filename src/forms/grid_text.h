#pragma once

#include <string>

#include "forms/grid.h"

namespace forms {

// What is copied of a grid. The rows: those that are selected, or the current one, a line each behind the captions of
// the visible columns, the cells parted by tabs as spreadsheets take them; what would tear a row is a blank. Empty
// where there is none.
std::string CopiedRows(const Grid& grid);
// The current cell as it is; the first visible one of the row where no column is current.
std::string CopiedCell(const Grid& grid);

}  // namespace forms
