#include "views/placing.h"

#include <wx/display.h>

#include <algorithm>

namespace views {

void KeepOnDisplay(wxTopLevelWindow& window) {
  const wxRect place = window.GetRect();
  const int display = wxDisplay::GetFromPoint(place.GetPosition() + place.GetSize() / 2);
  const wxRect room = wxDisplay(display == wxNOT_FOUND ? 0U : static_cast<unsigned>(display)).GetClientArea();
  if (room.IsEmpty()) {  // nobody has come to see it yet, as in a browser
    window.Move(window.FromDIP(wxPoint(40, 40)));
    return;
  }
  wxSize size = place.GetSize();
  size.DecTo(room.GetSize());
  if (size != place.GetSize()) {
    wxSize least = window.GetMinSize();
    least.DecToIfSpecified(size);
    window.SetMinSize(least);
    window.SetSize(size);
  }
  const wxPoint corner(std::clamp(place.x, room.x, room.x + room.width - size.x),
                       std::clamp(place.y, room.y, room.y + room.height - size.y));
  // The toolkit takes a window at the origin for one that nobody has placed.
  window.Move(corner == wxPoint() ? wxPoint(1, 1) : corner);
}

void PlaceInMiddle(wxTopLevelWindow& window) {
  window.CentreOnParent();
  KeepOnDisplay(window);
}

}  // namespace views
