#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

struct Word {
  std::string text;
  // The text as a glob: a backslash makes the wildcard or the backslash behind it an ordinary character.
  std::string pattern = {};
  // In double quotes, in whole or in part: never a sign such as "=" or `none`.
  bool quoted = false;
};

// One line of a scenario, cut into words. Words are parted by blanks and tabs; inside double quotes `\"`, `\\`, `\n`
// (CR LF) and `\t` are read. "#" at a word's start begins a comment, except in a position ("#3" as the third
// word, or the fourth of `move` and `move-column`) and in a colour ("#80FF00") behind `chosen` or "=".
struct Line {
  std::string file;
  int number = 0;
  std::string text;  // as written, trimmed
  std::vector<Word> words;
  // What is wrong with the line; empty when it can be read.
  std::string error;

  bool Blank() const { return words.empty() && error.empty(); }
  bool Is(std::string_view step) const { return !words.empty() && !words[0].quoted && words[0].text == step; }
  // "file:line: the line"
  std::string Place() const;
};

Line ReadLine(std::string_view text, std::string file, int number);

}  // namespace host
