#pragma once

#include <wx/panel.h>

#include "forms/ladder.h"

namespace views {

// As wide as its words need, and as high as so many rungs under three headings.
wxPanel* MakeLadder(wxWindow* parent, forms::Ladder& control, int rungs);

}  // namespace views
