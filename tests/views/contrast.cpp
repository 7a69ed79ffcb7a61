#include "contrast.h"

#include <algorithm>
#include <cmath>

namespace {

double LightOf(unsigned char part) {
  const double value = part / 255.0;
  return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double LightOf(const wxColour& color) {
  return 0.2126 * LightOf(color.Red()) + 0.7152 * LightOf(color.Green()) + 0.0722 * LightOf(color.Blue()) + 0.05;
}

}  // namespace

double Contrast(const wxColour& one, const wxColour& other) {
  return std::max(LightOf(one), LightOf(other)) / std::min(LightOf(one), LightOf(other));
}
