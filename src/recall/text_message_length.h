#pragma once

#include <cstddef>
#include <string_view>

namespace recall {

// How a text message goes over the air: in the seven-bit alphabet of mobile phones, or where that lacks a character,
// in UTF-16.
struct TextMessageLength {
  std::size_t count = 0;     // characters as they are charged: those of the alphabet's extension, and of UTF-16's
                             // surrogate pairs, are two; a line break is one
  std::size_t messages = 0;  // that it is sent as
  std::size_t left = 0;      // before one more is needed
  bool unicode = false;

  friend bool operator==(const TextMessageLength&, const TextMessageLength&) = default;
};

TextMessageLength LengthOfTextMessage(std::string_view utf8);

}  // namespace recall
