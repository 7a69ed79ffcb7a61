#include "views/placing.h"

namespace views {

void PlaceInMiddle(wxTopLevelWindow& window) {
  window.CentreOnParent();
  const wxPoint corner = window.GetPosition();
  if (corner.x < 0 || corner.y < 0) {
    window.Move(window.FromDIP(wxPoint(40, 40)));
  }
}

}  // namespace views
