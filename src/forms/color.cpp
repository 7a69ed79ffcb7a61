#include "forms/color.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>

namespace forms {

std::string ColorText(Color color) {
  std::array<char, 8> text{};
  static_cast<void>(std::snprintf(text.data(), text.size(), "#%02X%02X%02X", static_cast<unsigned>(color.red),
                                  static_cast<unsigned>(color.green), static_cast<unsigned>(color.blue)));
  return text.data();
}

std::optional<Color> ParseColor(std::string_view text) {
  std::uint32_t rgb = 0;
  const char* end = text.data() + text.size();
  if (text.size() != 7 || text[0] != '#') {
    return std::nullopt;
  }
  if (const auto [stop, error] = std::from_chars(text.data() + 1, end, rgb, 16); error != std::errc() || stop != end) {
    return std::nullopt;
  }
  return Color{static_cast<std::uint8_t>(rgb >> 16U), static_cast<std::uint8_t>(rgb >> 8U),
               static_cast<std::uint8_t>(rgb)};
}

}  // namespace forms
