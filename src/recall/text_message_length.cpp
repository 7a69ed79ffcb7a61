#include "recall/text_message_length.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

#include "forms/text.h"

namespace recall {
namespace {

// The seven-bit alphabet, but for the letters and digits of ASCII; and what takes an escape before it.
constexpr std::u32string_view kAlphabet =
    U"@\u00A3$\u00A5\u00E8\u00E9\u00F9\u00EC\u00F2\u00C7\n\u00D8\u00F8\u00C5\u00E5\u0394_\u03A6\u0393\u039B\u03A9"
    U"\u03A0\u03A8\u03A3\u0398\u039E\u00C6\u00E6\u00DF\u00C9 !\"#\u00A4%&'()*+,-./:;<=>?\u00A1\u00C4\u00D6\u00D1\u00DC"
    U"\u00A7\u00BF\u00E4\u00F6\u00F1\u00FC\u00E0";
constexpr std::u32string_view kExtension = U"\f^{}\\[~]|\u20AC";

// What the character is charged as; 0 where the alphabet lacks it.
std::size_t SeptetsOf(char32_t c) {
  const bool plain = (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z') || (c >= U'0' && c <= U'9') ||
                     kAlphabet.find(c) != std::u32string_view::npos;
  return plain ? 1 : kExtension.find(c) != std::u32string_view::npos ? 2 : 0;
}

std::u32string WithPlainLineBreaks(const std::u32string& text) {
  std::u32string plain;
  char32_t before = 0;
  for (const char32_t c : text) {
    if (c != U'\n' || before != U'\r') {
      plain += c == U'\r' ? U'\n' : c;
    }
    before = c;
  }
  return plain;
}

}  // namespace

TextMessageLength LengthOfTextMessage(std::string_view utf8) {
  const std::u32string text = WithPlainLineBreaks(forms::ToUtf32(utf8));
  TextMessageLength length{
      .unicode = std::ranges::any_of(text, [](char32_t c) { return SeptetsOf(c) == 0; }),
  };
  std::vector<std::size_t> sizes;
  std::ranges::transform(text, std::back_inserter(sizes), [&length](char32_t c) {
    return length.unicode ? std::size_t(c > 0xFFFF ? 2 : 1) : SeptetsOf(c);
  });
  length.count = std::accumulate(sizes.begin(), sizes.end(), std::size_t(0));

  const std::size_t alone = length.unicode ? 70 : 160;
  if (length.count <= alone) {
    length.messages = text.empty() ? 0 : 1;
    length.left = alone - length.count;
    return length;
  }
  // What tells the parts of a long text takes room in each; no character is cut in two.
  const std::size_t part = length.unicode ? 67 : 153;
  for (const std::size_t size : sizes) {
    if (size > length.left) {
      ++length.messages;
      length.left = part;
    }
    length.left -= size;
  }
  return length;
}

}  // namespace recall
