#pragma once

#include <wx/toplevel.h>

namespace views {

// Brings a window wholly into what the bars of its display leave free, smaller where it has to be.
void KeepOnDisplay(wxTopLevelWindow& window);

// Before its parent, or in the middle of the screen, and wholly on it.
void PlaceInMiddle(wxTopLevelWindow& window);

}  // namespace views
