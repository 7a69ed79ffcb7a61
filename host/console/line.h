#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

struct Word {
  std::string text;
  // In double quotes, in whole or in part: never a sign such as "=" or `none`.
  bool quoted = false;

  friend bool operator==(const Word&, const Word&) = default;
};

// One line of a scenario, cut into words. Words are parted by blanks and tabs; inside double quotes `\"`, `\\`, `\n`
// (CR LF) and `\t` are read. "#" at a word's start begins a comment, except in "#3" as the third word and in a colour
// ("#80FF00") behind `chosen` or "=".
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
