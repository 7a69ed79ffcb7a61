#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace forms {

struct Color {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  friend bool operator==(const Color&, const Color&) = default;
};

// "#80FF00"
std::string ColorText(Color color);
// Nothing when the text is no colour of that form.
std::optional<Color> ParseColor(std::string_view text);

}  // namespace forms
