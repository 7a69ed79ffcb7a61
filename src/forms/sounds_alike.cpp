#include "forms/sounds_alike.h"

#include <algorithm>
#include <array>
#include <utility>

#include "forms/text.h"

namespace forms {
namespace {

struct Accented {
  std::u32string_view letters;
  std::u32string_view plain;
};
constexpr std::array kAccented = {
    Accented{U"àáâãäåāăą", U"a"}, Accented{U"æ", U"ae"},   Accented{U"çćĉċč", U"c"}, Accented{U"ďđð", U"d"},
    Accented{U"èéêëēĕėęě", U"e"}, Accented{U"ĝğġģ", U"g"}, Accented{U"ĥħ", U"h"},    Accented{U"ìíîïĩīĭįı", U"i"},
    Accented{U"ĵ", U"j"},         Accented{U"ķ", U"k"},    Accented{U"ĺļľŀł", U"l"}, Accented{U"ñńņňŋ", U"n"},
    Accented{U"òóôõöøōŏő", U"o"}, Accented{U"œ", U"oe"},   Accented{U"ŕŗř", U"r"},   Accented{U"śŝşšș", U"s"},
    Accented{U"ß", U"ss"},        Accented{U"ţťŧț", U"t"}, Accented{U"þ", U"th"},    Accented{U"ùúûüũūŭůűų", U"u"},
    Accented{U"ŵ", U"w"},         Accented{U"ýÿŷ", U"y"},  Accented{U"źżž", U"z"}};

bool IsOneOf(char32_t c, std::u32string_view letters) {
  return c != 0 && letters.find(c) != std::u32string_view::npos;
}

bool IsVowel(char32_t c) {
  return IsOneOf(c, U"aeiouy");
}

// The words in small letters without accents. What is no letter parts them, but for an apostrophe.
std::vector<std::u32string> WordsOf(std::string_view name) {
  constexpr char32_t kFirstLetterBeyondAscii = 0xC0;
  std::vector<std::u32string> words(1);
  for (const char32_t c : ToUtf32(ToLower(name))) {
    const bool mark = (c >= 0x300 && c <= 0x36F) || c == U'\'' || c == U'’';
    const bool letter = (c >= U'a' && c <= U'z') || (c >= kFirstLetterBeyondAscii && !(c >= 0x2000 && c <= 0x206F));
    if (letter && !mark) {
      const auto* accented =
          std::ranges::find_if(kAccented, [c](const Accented& known) { return IsOneOf(c, known.letters); });
      words.back() += accented == kAccented.end() ? std::u32string(1, c) : std::u32string(accented->plain);
    } else if (!mark && !words.back().empty()) {
      words.emplace_back();
    }
  }
  std::erase_if(words, &std::u32string::empty);
  return words;
}

// How letters sound where they stand in a word; the first line that fits counts. Without a sound they are silent.
struct Spelling {
  enum class Where { Anywhere, First, BeforeSoft, FirstBeforeVowel };

  std::u32string_view letters;
  std::u32string_view sound;
  Where where = Where::Anywhere;
};
using Where = Spelling::Where;
constexpr std::array kSpellings = {
    Spelling{U"kn", U"N", Where::First},
    Spelling{U"gn", U"N", Where::First},
    Spelling{U"wr", U"R", Where::First},
    Spelling{U"ps", U"S", Where::First},
    Spelling{U"x", U"S", Where::First},
    Spelling{U"gh", U"G", Where::First},
    Spelling{U"h", U"H", Where::First},
    Spelling{U"w", U"W", Where::First},
    Spelling{U"ch", U"S", Where::FirstBeforeVowel},
    Spelling{U"sch", U"S"},
    Spelling{U"tch", U"K"},
    Spelling{U"ch", U"K"},
    Spelling{U"ck", U"K"},
    Spelling{U"sh", U"S"},
    Spelling{U"ph", U"F"},
    Spelling{U"gh", U""},
    Spelling{U"dt", U"T"},
    Spelling{U"sc", U"S", Where::BeforeSoft},
    Spelling{U"dg", U"J", Where::BeforeSoft},
    Spelling{U"c", U"S", Where::BeforeSoft},
    Spelling{U"g", U"J", Where::BeforeSoft},
    Spelling{U"x", U"KS"},
    Spelling{U"b", U"B"},
    Spelling{U"c", U"K"},
    Spelling{U"d", U"T"},
    Spelling{U"f", U"F"},
    Spelling{U"g", U"G"},
    Spelling{U"h", U""},
    Spelling{U"j", U"J"},
    Spelling{U"k", U"K"},
    Spelling{U"l", U"L"},
    Spelling{U"m", U"M"},
    Spelling{U"n", U"N"},
    Spelling{U"p", U"P"},
    Spelling{U"q", U"K"},
    Spelling{U"r", U"R"},
    Spelling{U"s", U"S"},
    Spelling{U"t", U"T"},
    Spelling{U"v", U"F"},
    Spelling{U"w", U""},
    Spelling{U"z", U"S"},
};

bool Fits(const Spelling& spelling, std::u32string_view word, std::size_t at) {
  if (!word.substr(at).starts_with(spelling.letters)) {
    return false;
  }
  const std::size_t behind = at + spelling.letters.size();
  const char32_t next = behind < word.size() ? word[behind] : 0;
  switch (spelling.where) {
    case Where::Anywhere:
      return true;
    case Where::First:
      return at == 0;
    case Where::BeforeSoft:
      return IsOneOf(next, U"eiy");
    case Where::FirstBeforeVowel:
      return at == 0 && IsVowel(next);
  }
  return false;
}

std::u32string Sounds(std::u32string_view word) {
  std::u32string sounds;
  bool doubles = false;  // the next sound follows the last without a vowel between them
  for (std::size_t at = 0; at < word.size();) {
    if (IsVowel(word[at])) {
      sounds += at == 0 ? U"A" : U"";
      doubles = false;
      ++at;
      continue;
    }
    const auto* spelling =
        std::ranges::find_if(kSpellings, [&](const Spelling& known) { return Fits(known, word, at); });
    const bool known = spelling != kSpellings.end();
    const std::u32string_view sound = known ? spelling->sound : word.substr(at, 1);
    if (!(doubles && known && sounds.ends_with(sound))) {
      sounds += sound;
    }
    doubles = doubles || !sound.empty();
    at += known ? spelling->letters.size() : 1;
  }
  return sounds;
}

// The sounds of each word, without initials where there is a whole word.
std::vector<std::u32string> SoundsOfWords(std::vector<std::u32string> words) {
  const auto initial = [](const std::u32string& word) { return word.size() == 1; };
  if (!std::ranges::all_of(words, initial)) {
    std::erase_if(words, initial);
  }
  std::ranges::transform(words, words.begin(), Sounds);
  return words;
}

std::u32string Joined(const std::vector<std::u32string>& words) {
  std::u32string joined;
  for (const std::u32string& word : words) {
    joined += word;
  }
  return joined;
}

}  // namespace

std::string SoundOf(std::string_view word) {
  return ToUtf8(Sounds(Joined(WordsOf(word))));
}

bool SoundAlike(std::string_view name, std::string_view other) {
  if (EqualsIgnoringCase(Trim(name), Trim(other))) {
    return true;
  }
  const auto name_words = WordsOf(name);
  const auto other_words = WordsOf(other);
  if (name_words.empty() || other_words.empty()) {
    return false;
  }
  auto fewer = SoundsOfWords(name_words);
  auto more = SoundsOfWords(other_words);
  if (fewer.size() > more.size()) {
    std::swap(fewer, more);
  }
  return Sounds(Joined(name_words)) == Sounds(Joined(other_words)) ||
         std::ranges::all_of(fewer, [&](const auto& word) { return std::ranges::find(more, word) != more.end(); });
}

std::vector<std::string> BeginningsAlike(std::string_view name) {
  constexpr std::array<std::pair<char, std::string_view>, 8> kLetters = {{{'A', "AEIOUY"},
                                                                          {'F', "FVP"},
                                                                          {'J', "JG"},
                                                                          {'K', "KCQ"},
                                                                          {'N', "NKG"},
                                                                          {'R', "RW"},
                                                                          {'S', "SCZXP"},
                                                                          {'T', "TD"}}};
  name = Trim(name);
  std::vector<std::string> beginnings;
  if (!name.empty()) {
    beginnings.push_back(ToUpper(Left(name, 1)));
  }
  const std::string sound = SoundOf(name);
  for (const auto& [first, letters] : kLetters) {
    for (const char letter : sound.starts_with(first) ? letters : std::string_view()) {
      if (beginnings.front() != std::string(1, letter)) {
        beginnings.emplace_back(1, letter);
      }
    }
  }
  return beginnings;
}

}  // namespace forms
