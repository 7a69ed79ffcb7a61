#include "database/odbc/odbc_text.h"

#include "forms/text.h"

namespace host {
namespace {

static_assert(sizeof(SQLWCHAR) == 2);

// How UTF-16 writes a character that does not fit into one unit.
constexpr char32_t kFirstInPairs = 0x10000;
constexpr char32_t kHighHalf = 0xD800;
constexpr char32_t kLowHalf = 0xDC00;
constexpr char32_t kBehindHalves = 0xE000;
constexpr unsigned kBitsOfHalf = 10;
constexpr char32_t kBitsOfLow = 0x3FF;

}  // namespace

std::vector<SQLWCHAR> ToOdbcText(std::string_view utf8) {
  std::vector<SQLWCHAR> text;
  text.reserve(utf8.size() + 1);
  for (const char32_t character : forms::ToUtf32(utf8)) {
    if (character < kFirstInPairs) {
      text.push_back(static_cast<SQLWCHAR>(character));
    } else {
      const char32_t bits = character - kFirstInPairs;
      text.push_back(static_cast<SQLWCHAR>(kHighHalf + (bits >> kBitsOfHalf)));
      text.push_back(static_cast<SQLWCHAR>(kLowHalf + (bits & kBitsOfLow)));
    }
  }
  text.push_back(0);
  return text;
}

std::string FromOdbcText(const SQLWCHAR* text, std::size_t size) {
  std::u32string characters;
  characters.reserve(size);
  for (std::size_t i = 0; i < size; ++i) {
    const char32_t unit = text[i];
    const char32_t next = i + 1 < size ? char32_t{text[i + 1]} : 0;
    if (unit >= kHighHalf && unit < kLowHalf && next >= kLowHalf && next < kBehindHalves) {
      characters.push_back(kFirstInPairs + ((unit - kHighHalf) << kBitsOfHalf) + (next - kLowHalf));
      ++i;
    } else {
      characters.push_back(unit);
    }
  }
  return forms::ToUtf8(characters);
}

}  // namespace host
