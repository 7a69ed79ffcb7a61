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

inline constexpr Color kBlack{0, 0, 0};
inline constexpr Color kWhite{255, 255, 255};

// "#80FF00"
std::string ColorText(Color color);
// Nothing when the text is no colour of that form.
std::optional<Color> ParseColor(std::string_view text);

// As tables keep a colour: red + 256 green + 65536 blue. Nothing for a number that is none of that form.
std::optional<Color> ColorOfNumber(std::int32_t number);
std::int32_t NumberOf(Color color);

// How far two colours are apart, from 1 for the same to 21 for black and white.
double Contrast(Color one, Color other);
// From here on a text is read well.
inline constexpr double kReadableContrast = 4.5;
// A text's colour on a background: the wanted one where it is read well, otherwise black or white.
Color ReadableOn(Color back, Color wanted);

}  // namespace forms
