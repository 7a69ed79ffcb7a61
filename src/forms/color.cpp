#include "forms/color.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace forms {
namespace {

// The share of white's light, as the eye weighs the three of which a screen makes a colour.
double LightOf(Color color) {
  const auto linear = [](std::uint8_t part) {
    const double value = part / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

}  // namespace

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

std::optional<Color> ColorOfNumber(std::int32_t number) {
  if (number < 0 || number > 0xFFFFFF) {
    return std::nullopt;
  }
  const auto bgr = static_cast<std::uint32_t>(number);
  return Color{static_cast<std::uint8_t>(bgr), static_cast<std::uint8_t>(bgr >> 8U),
               static_cast<std::uint8_t>(bgr >> 16U)};
}

std::int32_t NumberOf(Color color) {
  return color.red + 256 * color.green + 65536 * color.blue;
}

double Contrast(Color one, Color other) {
  constexpr double kOfScreen = 0.05;  // the light of a dark screen
  const auto [darker, lighter] = std::minmax({LightOf(one) + kOfScreen, LightOf(other) + kOfScreen});
  return lighter / darker;
}

Color ReadableOn(Color back, Color wanted) {
  if (Contrast(back, wanted) >= kReadableContrast) {
    return wanted;
  }
  return Contrast(back, kBlack) >= Contrast(back, kWhite) ? kBlack : kWhite;
}

}  // namespace forms
