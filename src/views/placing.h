#pragma once

#include <wx/toplevel.h>

namespace views {

// Puts a window in the middle of its parent or the screen; near the corner while the screen has no size yet, as
// before a browser has come to see it.
void PlaceInMiddle(wxTopLevelWindow& window);

}  // namespace views
