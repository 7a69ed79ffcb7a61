#pragma once

#include <wx/grid.h>

#include <vector>

#include "forms/button.h"
#include "forms/grid.h"

namespace views {

// Ctrl+C copies a grid's rows; the menu of its cells offers that, and the cell alone.
class GridCopying {
 public:
  GridCopying(wxGrid& widget, forms::Grid& grid);
  GridCopying(const GridCopying&) = delete;
  GridCopying& operator=(const GridCopying&) = delete;
  ~GridCopying() = default;

  // The grid's own menu behind the commands to copy.
  std::vector<forms::Button*> CellMenu();

 private:
  forms::Grid& grid_;
  forms::MenuItem rows_;
  forms::MenuItem cell_;
};

}  // namespace views
