#include "forms/text.h"

#include <algorithm>
#include <array>
#include <cstdint>

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

// Capitals, every `step`-th of first to last, and how far behind each its small letter stands.
struct CapitalRange {
  char32_t first;
  char32_t last;
  std::int32_t distance;
  char32_t step = 1;

  bool Holds(char32_t c) const { return c >= first && c <= last && (c - first) % step == 0; }
};

char32_t Moved(char32_t c, std::int32_t distance) {
  return static_cast<char32_t>(static_cast<std::int32_t>(c) + distance);
}

// Within a range a letter and its capital take the same number of bytes in UTF-8.
constexpr auto kCapitals = std::to_array<CapitalRange>({
    {U'A', U'Z', 32},       {0xC0, 0xD6, 32},     {0xD8, 0xDE, 32},     {0x100, 0x12E, 1, 2}, {0x132, 0x136, 1, 2},
    {0x139, 0x147, 1, 2},   {0x14A, 0x176, 1, 2}, {0x178, 0x178, -121}, {0x179, 0x17D, 1, 2}, {0x218, 0x21A, 1, 2},
    {0x386, 0x386, 38},     {0x388, 0x38A, 37},   {0x38C, 0x38C, 64},   {0x38E, 0x38F, 63},   {0x391, 0x3A1, 32},
    {0x3A3, 0x3AB, 32},     {0x400, 0x40F, 80},   {0x410, 0x42F, 32},   {0x490, 0x492, 1, 2}, {0x1E00, 0x1E94, 1, 2},
    {0x1EA0, 0x1EFE, 1, 2},
});

char32_t Upper(char32_t c) {
  for (const CapitalRange& range : kCapitals) {
    if (const char32_t capital = Moved(c, -range.distance); range.Holds(capital)) {
      return capital;
    }
  }
  return c;
}

char32_t Lower(char32_t c) {
  for (const CapitalRange& range : kCapitals) {
    if (range.Holds(c)) {
      return Moved(c, range.distance);
    }
  }
  return c;
}

template <typename Map>
std::string Mapped(std::string_view utf8, Map map) {
  std::u32string text = ToUtf32(utf8);
  for (char32_t& c : text) {
    c = map(c);
  }
  return ToUtf8(text);
}

bool ContinuesWord(char32_t c) {
  return c == U'\'' || (c >= U'0' && c <= U'9') || (Lower(c) >= U'a' && Lower(c) <= U'z') || c >= 0xC0;
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

std::string WithThousands(int number) {
  constexpr std::size_t kGroup = 3;
  std::string digits = std::to_string(number);
  const std::size_t first = number < 0 ? 1U : 0U;
  for (std::size_t at = digits.size(); at > first + kGroup;) {
    at -= kGroup;
    digits.insert(at, ",");
  }
  return digits;
}

std::size_t CharacterCount(std::string_view utf8) {
  return ToUtf32(utf8).size();
}

std::string Left(std::string_view utf8, std::size_t count) {
  if (utf8.size() <= count) {
    return std::string(utf8);
  }
  return ToUtf8(ToUtf32(utf8).substr(0, count));
}

std::string Fitting(std::string_view utf8, int room) {
  return room > 0 ? Left(utf8, static_cast<std::size_t>(room)) : std::string(utf8);
}

std::string_view Trim(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string OnOneLine(std::string_view text) {
  std::string line;
  line.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    const bool tears = text[i] == '\t' || text[i] == '\r' || text[i] == '\n';
    if (!pair) {
      line.push_back(tears ? ' ' : text[i]);
    }
  }
  return line;
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
    in_word = ContinuesWord(c);
    return mapped;
  });
}

std::string WithoutMnemonic(std::string_view caption) {
  std::string seen;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    i += caption[i] == '&' && i + 1 < caption.size() ? 1U : 0U;
    seen += caption[i];
  }
  return seen;
}

std::string WithMnemonic(std::string_view text, char letter) {
  std::string caption;
  bool marked = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool marks = !marked && EqualsIgnoringCase(text.substr(i, 1), {&letter, 1});
    marked = marked || marks;
    caption += marks || text[i] == '&' ? "&" : "";
    caption += text[i];
  }
  return caption;
}

char MnemonicOf(std::string_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] == '&' && caption[++i] != '&') {
      return ToLower(caption.substr(i, 1)).front();
    }
  }
  return '\0';
}

std::string Masked(const std::string& utf8) {
  constexpr std::size_t kShown = 4;
  std::u32string text = ToUtf32(utf8);
  std::fill(text.begin(), text.size() > kShown ? text.end() - kShown : text.end(), U'*');
  return ToUtf8(text);
}

bool IsOn(std::string_view text) {
  constexpr std::array<std::string_view, 6> kSet = {"1", "-1", "on", "true", "yes", "y"};
  return std::ranges::any_of(kSet, [text](std::string_view set) { return EqualsIgnoringCase(text, set); });
}

// Columns are found by their names: plain letters are not decoded.
bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
  constexpr unsigned char kLastPlain = 0x7F;
  if (left.size() != right.size()) {
    return false;
  }
  for (std::size_t i = 0; i < left.size(); ++i) {
    const auto l = static_cast<unsigned char>(left[i]);
    const auto r = static_cast<unsigned char>(right[i]);
    if (l > kLastPlain || r > kLastPlain) {
      return ToLower(left.substr(i)) == ToLower(right.substr(i));
    }
    if (Lower(l) != Lower(r)) {
      return false;
    }
  }
  return true;
}

}  // namespace forms
