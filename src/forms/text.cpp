#include "forms/text.h"

#include <array>

namespace forms {
namespace {

constexpr char32_t kReplacement = U'\uFFFD';

// The length of the sequence that this byte leads; 0 when it leads none.
std::size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) {
    return 1;
  }
  if (lead >= 0xC2 && lead <= 0xDF) {
    return 2;
  }
  if (lead >= 0xE0 && lead <= 0xEF) {
    return 3;
  }
  return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

bool IsScalar(char32_t c, std::size_t length) {
  constexpr std::array<char32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
  return c >= kLeast.at(length) && c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
}

char32_t Upper(char32_t c) {
  if ((c >= U'a' && c <= U'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7) || (c >= 0x3B1 && c <= 0x3C9 && c != 0x3C2) ||
      (c >= 0x430 && c <= 0x44F)) {
    return c - 32;
  }
  if (c >= 0x450 && c <= 0x45F) {
    return c - 80;
  }
  if (c == 0xFF) {
    return 0x178;
  }
  const bool odd_is_lower = (c >= 0x100 && c <= 0x137 && c != 0x130 && c != 0x131) || (c >= 0x14A && c <= 0x177);
  const bool even_is_lower = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
  return (odd_is_lower && c % 2 == 1) || (even_is_lower && c % 2 == 0) ? c - 1 : c;
}

char32_t Lower(char32_t c) {
  if ((c >= U'A' && c <= U'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7) || (c >= 0x391 && c <= 0x3A9 && c != 0x3A2) ||
      (c >= 0x410 && c <= 0x42F)) {
    return c + 32;
  }
  if (c >= 0x400 && c <= 0x40F) {
    return c + 80;
  }
  if (c == 0x178) {
    return 0xFF;
  }
  return c != Upper(c + 1) || c + 1 == Upper(c + 1) ? c : c + 1;
}

template <typename Map>
std::string Mapped(std::string_view utf8, Map map) {
  std::u32string text = ToUtf32(utf8);
  for (char32_t& c : text) {
    c = map(c);
  }
  return ToUtf8(text);
}

bool IsLetterOrDigit(char32_t c) {
  return (c >= U'0' && c <= U'9') || c == U'\'' || Upper(c) != c || Lower(c) != c || c > 0x17F;
}

}  // namespace

std::u32string ToUtf32(std::string_view utf8) {
  std::u32string text;
  text.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[i]);
    const std::size_t length = SequenceLength(lead);
    char32_t c = length <= 1 ? lead : lead & (0x7FU >> length);
    std::size_t read = 1;
    while (read < length && i + read < utf8.size() && (static_cast<unsigned char>(utf8[i + read]) & 0xC0U) == 0x80U) {
      c = (c << 6U) | (static_cast<unsigned char>(utf8[i + read]) & 0x3FU);
      ++read;
    }
    const bool whole = length != 0 && read == length && IsScalar(c, length);
    text.push_back(whole ? c : kReplacement);
    i += read;
  }
  return text;
}

std::string ToUtf8(std::u32string_view text) {
  std::string utf8;
  utf8.reserve(text.size());
  const auto put = [&utf8](char32_t bits) { utf8.push_back(static_cast<char>(bits)); };
  for (const char32_t c : text) {
    if (c < 0x80) {
      put(c);
    } else if (c < 0x800) {
      put(0xC0U | (c >> 6U));
      put(0x80U | (c & 0x3FU));
    } else if (c < 0x10000) {
      put(0xE0U | (c >> 12U));
      put(0x80U | ((c >> 6U) & 0x3FU));
      put(0x80U | (c & 0x3FU));
    } else {
      put(0xF0U | (c >> 18U));
      put(0x80U | ((c >> 12U) & 0x3FU));
      put(0x80U | ((c >> 6U) & 0x3FU));
      put(0x80U | (c & 0x3FU));
    }
  }
  return utf8;
}

std::size_t CharacterCount(std::string_view utf8) {
  std::size_t count = 0;
  for (const char c : utf8) {
    count += (static_cast<unsigned char>(c) & 0xC0U) != 0x80U ? 1 : 0;
  }
  return count;
}

std::string Left(std::string_view utf8, std::size_t count) {
  if (utf8.size() <= count) {
    return std::string(utf8);
  }
  return ToUtf8(ToUtf32(utf8).substr(0, count));
}

std::string_view Trim(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string ToUpper(std::string_view utf8) {
  return Mapped(utf8, Upper);
}

std::string ToLower(std::string_view utf8) {
  return Mapped(utf8, Lower);
}

std::string ToProper(std::string_view utf8) {
  bool in_word = false;
  return Mapped(utf8, [&in_word](char32_t c) {
    const char32_t mapped = in_word ? Lower(c) : Upper(c);
    in_word = IsLetterOrDigit(c);
    return mapped;
  });
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
  return left == right || (left.size() == right.size() && ToLower(left) == ToLower(right));
}

}  // namespace forms
