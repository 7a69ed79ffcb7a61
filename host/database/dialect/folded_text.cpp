#include "database/dialect/folded_text.h"

#include <algorithm>

#include "forms/text.h"

namespace host {
namespace {

// What one character of the text is compared with.
struct Element {
  std::size_t length;  // in the pattern
  bool matches;
};

bool IsInClass(std::u32string_view members, char32_t c) {
  const bool excluded = members.starts_with(U'^');
  bool found = false;
  for (std::size_t i = excluded ? 1 : 0; i < members.size() && !found; ++i) {
    if (i + 2 < members.size() && members[i + 1] == U'-') {
      found = members[i] <= c && c <= members[i + 2];
      i += 2;
    } else {
      found = members[i] == c;
    }
  }
  return found != excluded;
}

Element MatchElement(std::u32string_view pattern, char32_t c) {
  if (pattern.front() == U'[') {
    if (const std::size_t end = pattern.find(U']', 2); end != std::u32string_view::npos) {
      return {end + 1, IsInClass(pattern.substr(1, end - 1), c)};
    }
  }
  return {1, pattern.front() == U'_' || pattern.front() == c};
}

}  // namespace

bool HasCaseBeyondAscii(std::string_view utf8) {
  if (std::none_of(utf8.begin(), utf8.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; })) {
    return false;
  }
  std::u32string beyond = forms::ToUtf32(utf8);
  std::erase_if(beyond, [](char32_t c) { return c < 0x80; });
  const std::string letters = forms::ToUtf8(beyond);
  return forms::ToLower(letters) != forms::ToUpper(letters);
}

int CompareFolded(std::string_view left, std::string_view right) {
  const auto lower = [](char c) { return 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  std::size_t same = 0;
  for (; same < left.size() && same < right.size(); ++same) {
    const char l = lower(left[same]);
    const char r = lower(right[same]);
    if (static_cast<signed char>(l) < 0 || static_cast<signed char>(r) < 0) {
      return Folded(left.substr(same)).compare(Folded(right.substr(same)));
    }
    if (l != r) {
      return l < r ? -1 : 1;
    }
  }
  return static_cast<int>(same < left.size()) - static_cast<int>(same < right.size());
}

std::u32string Folded(std::string_view utf8) {
  return forms::ToUtf32(forms::ToLower(utf8));
}

bool MatchesPattern(std::u32string_view pattern, std::u32string_view text) {
  std::size_t at = 0;
  std::size_t in_text = 0;
  // Where to go on after the last "%" once it has taken one more character.
  std::size_t after_percent = std::u32string_view::npos;
  std::size_t retry_text = 0;
  while (in_text < text.size()) {
    if (at < pattern.size() && pattern[at] == U'%') {
      after_percent = ++at;
      retry_text = in_text;
      continue;
    }
    if (at < pattern.size()) {
      if (const Element element = MatchElement(pattern.substr(at), text[in_text]); element.matches) {
        at += element.length;
        ++in_text;
        continue;
      }
    }
    if (after_percent == std::u32string_view::npos) {
      return false;
    }
    at = after_percent;
    in_text = ++retry_text;
  }
  return pattern.find_first_not_of(U'%', at) == std::u32string_view::npos;
}

}  // namespace host
