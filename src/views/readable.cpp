#include "views/readable.h"

#include <cmath>

namespace views {

wxColour ReadableOn(const wxColour& back, const wxColour& wanted) {
  constexpr double kDifference = 0.25;
  const double behind = back.GetLuminance();
  if (std::abs(wanted.GetLuminance() - behind) >= kDifference) {
    return wanted;
  }
  constexpr int kLighter = 160;  // percent
  constexpr int kDarker = 40;
  return wanted.ChangeLightness(behind < 0.5 ? kLighter : kDarker);
}

}  // namespace views
