#pragma once

#include <wx/grid.h>
#include <wx/menu.h>

#include "forms/grid.h"

namespace views {

// Sorting by a column and sizing it (-1 for none), the built-in layout, and a check for every column, which shows and
// hides it.
void FillColumnMenu(wxMenu& menu, forms::Grid& grid, wxGrid& widget, int column);
// Appends these for the current column as a menu of their own.
void AppendColumnMenu(wxMenu& menu, forms::Grid& grid, wxGrid& widget);
// They come up below a heading with the right button.
void BindHeadMenu(forms::Grid& grid, wxGrid& widget);

}  // namespace views
