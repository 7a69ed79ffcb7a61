#pragma once

#include <wx/grid.h>

#include "forms/grid.h"

namespace views {

// A grid that asks for the cells that it paints, with filter cells under the captions where the control has them.
wxGrid* MakeGrid(wxWindow* parent, forms::Grid& control, int lines);

}  // namespace views
