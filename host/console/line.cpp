#include "console/line.h"

#include <cctype>

#include "console/step_failure.h"
#include "forms/text.h"

namespace host {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

// The escape behind a backslash; the characters themselves when there is none such.
std::string Unescape(char c) {
  switch (c) {
    case '"':
    case '\\':
      return {c};
    case 'n':
      return "\r\n";
    case 't':
      return "\t";
    default:
      return {'\\', c};
  }
}

class WordReader {
 public:
  explicit WordReader(Line& line) : line_(line), text_(line.text) {}

  void Read() {
    for (SkipBlanks(); at_ < text_.size() && !AtComment(); SkipBlanks()) {
      ReadWord();
    }
  }

 private:
  void SkipBlanks() {
    while (at_ < text_.size() && IsBlank(text_[at_])) {
      ++at_;
    }
  }

  // "#3" or "#80FF00" where such a word belongs is no comment.
  bool AtComment() const {
    if (text_[at_] != '#') {
      return false;
    }
    std::size_t digits = 0;
    std::size_t hex_digits = 0;
    std::size_t end = at_ + 1;
    for (; end < text_.size() && !IsBlank(text_[end]); ++end) {
      const auto c = static_cast<unsigned char>(text_[end]);
      digits += std::isdigit(c) != 0 ? 1U : 0U;
      hex_digits += std::isxdigit(c) != 0 ? 1U : 0U;
    }
    const std::size_t size = end - at_ - 1;
    const std::size_t place = line_.words.size();
    const bool position = size > 0 && digits == size && (place == 2 || (place == 3 && MovesToPosition()));
    const bool color = size == 6 && hex_digits == 6 && !line_.words.empty() &&
                       (line_.words.back().text == "=" || line_.words.back().text == "chosen");
    return !position && !color;
  }

  bool MovesToPosition() const { return line_.Is("move") || line_.Is("move-column"); }

  void ReadWord() {
    Word word;
    bool open = false;
    for (; at_ < text_.size() && (open || !IsBlank(text_[at_])); ++at_) {
      const char c = text_[at_];
      if (c == '"') {
        open = !open;
        word.quoted = true;
      } else if (c == '\\') {
        ReadBackslash(word, open);
      } else {
        word.text += c;
        word.pattern += c;
      }
    }
    if (open) {
      line_.error = "a double quote is not closed";
    }
    line_.words.push_back(std::move(word));
  }

  // Outside quotes it is an ordinary character, except before a wildcard.
  void ReadBackslash(Word& word, bool in_quotes) {
    const char next = at_ + 1 < text_.size() ? text_[at_ + 1] : '\0';
    if (next == '*' || next == '?') {
      ++at_;
      word.text += {'\\', next};
      word.pattern += {'\\', next};
      return;
    }
    std::string read = "\\";
    if (in_quotes && next != '\0') {
      ++at_;
      read = Unescape(next);
    }
    word.text += read;
    for (const char c : read) {
      word.pattern += c == '\\' ? "\\\\" : std::string(1, c);
    }
  }

  Line& line_;
  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    switch (text[i]) {
      case '"':
      case '\\':
        quoted += {'\\', text[i]};
        break;
      case '\t':
        quoted += "\\t";
        break;
      case '\r':
      case '\n':
        i += text.substr(i, 2) == "\r\n" ? 1U : 0U;
        quoted += "\\n";
        break;
      default:
        quoted += text[i];
    }
  }
  return quoted + '"';
}

std::string Line::Place() const {
  return file + ":" + std::to_string(number) + ": " + text;
}

Line ReadLine(std::string_view text, std::string file, int number) {
  Line line{
      .file = std::move(file), .number = number, .text = std::string(forms::Trim(text)), .words = {}, .error = {}};
  WordReader(line).Read();
  return line;
}

}  // namespace host
