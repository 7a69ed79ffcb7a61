#include "recall/rtf_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "forms/text.h"
#include "recall/template_text.h"

namespace recall {
namespace {

using forms::RichText;

// Groups within one another; a document with more is read no further.
constexpr std::size_t kMostGroups = 1'000;

struct Sign {
  std::string_view word;
  std::string_view text;
};
constexpr std::array kSigns = {Sign{"tab", " "},           Sign{"cell", " "},        Sign{"line", "\n"},
                               Sign{"emdash", "\u2014"},   Sign{"endash", "\u2013"}, Sign{"lquote", "\u2018"},
                               Sign{"rquote", "\u2019"},   Sign{"bullet", "\u2022"}, Sign{"ldblquote", "\u201C"},
                               Sign{"rdblquote", "\u201D"}};

// Groups that begin so hold no words of the letter.
constexpr std::array<std::string_view, 16> kNoText = {
    "fonttbl", "colortbl", "stylesheet", "info",    "pict",    "object",  "header",  "headerl",
    "headerr", "headerf",  "footer",     "footerl", "footerr", "footerf", "fldinst", "filetbl"};

class Reader {
 public:
  explicit Reader(std::string_view rtf) : rest_(rtf) { text_.paragraphs.emplace_back(); }

  RichText Read() {
    while (!rest_.empty() && groups_.size() <= kMostGroups && written_ < kMostLetterText) {
      const char c = Take();
      if (c == '{') {
        groups_.push_back(group_);
        unread_ = 0;
      } else if (c == '}') {
        CloseGroup();
      } else if (c == '\\') {
        Control();
      } else if (c != '\r' && c != '\n') {
        Put(static_cast<unsigned char>(c) < 0x80 ? std::string(1, c) : DecodedTemplate({&c, 1}));
      }
    }
    if (text_.paragraphs.back().runs.empty()) {
      text_.paragraphs.pop_back();
    }
    return std::move(text_);
  }

 private:
  struct Group {
    RichText::Style style = {};
    bool skips = false;
    bool hidden = false;   // characters that are stored, but not printed
    bool deleted = false;  // struck out by a reviewer
    int unread = 1;        // characters behind one of Unicode, for readers that do not know it
  };

  char Take() {
    const char c = rest_.front();
    rest_.remove_prefix(1);
    return c;
  }

  void CloseGroup() {
    unread_ = 0;
    if (!groups_.empty()) {
      group_ = groups_.back();
      groups_.pop_back();
    }
  }

  // Behind a backslash: a word with a number, or one sign.
  void Control() {
    if (rest_.empty()) {
      return;
    }
    const auto is_letter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    if (!is_letter(rest_.front())) {
      Symbol(Take());
      return;
    }
    const auto end = std::ranges::find_if_not(rest_, is_letter);
    const std::string_view word = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
    rest_.remove_prefix(word.size());
    const bool negative = rest_.starts_with('-');
    if (negative) {
      rest_.remove_prefix(1);
    }
    std::int64_t number = -1;
    while (!rest_.empty() && forms::IsDigit(rest_.front())) {
      number = std::min<std::int64_t>(std::max<std::int64_t>(number, 0) * 10 + (Take() - '0'), INT32_MAX);
    }
    if (rest_.starts_with(' ')) {
      rest_.remove_prefix(1);
    }
    Word(word, negative ? -number : number, number >= 0);
  }

  void Symbol(char symbol) {
    if (symbol == '\'') {
      const auto digit = [](char c) {
        return forms::IsDigit(c)      ? c - '0'
               : c >= 'a' && c <= 'f' ? c - 'a' + 10
               : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                      : -1;
      };
      if (rest_.size() >= 2 && digit(rest_[0]) >= 0 && digit(rest_[1]) >= 0) {
        const char byte = static_cast<char>(digit(rest_[0]) * 16 + digit(rest_[1]));
        rest_.remove_prefix(2);
        Put(DecodedTemplate({&byte, 1}));
      }
    } else if (symbol == '*') {
      group_.skips = true;
    } else if (symbol == '~') {
      Put(" ");
    } else if (symbol == '_') {
      Put("-");
    } else if (symbol == '\n' || symbol == '\r') {
      EndParagraph();
    } else if (symbol == '\\' || symbol == '{' || symbol == '}') {
      Put({&symbol, 1});
    }
  }

  void Word(std::string_view word, std::int64_t number, bool numbered) {
    const bool on = !numbered || number != 0;
    RichText::Style& style = group_.style;
    if (word == "par" || word == "row" || word == "sect" || word == "page") {
      EndParagraph();
    } else if (word == "pard") {
      text_.paragraphs.back().align = RichText::Align::Left;
    } else if (word == "plain") {
      style = {};
      group_.hidden = group_.deleted = false;
    } else if (word == "v") {
      group_.hidden = on;
    } else if (word == "deleted") {
      group_.deleted = on;
    } else if (word == "b") {
      style.bold = on;
    } else if (word == "i") {
      style.italic = on;
    } else if (word == "ul" || word == "ulnone") {
      style.underline = on && word == "ul";
    } else if (word == "qc" || word == "qr" || word == "qj" || word == "ql") {
      text_.paragraphs.back().align = AlignOf(word.back());
    } else if (word == "u" && numbered) {
      PutUnit(static_cast<char16_t>(number));
    } else if (word == "uc" && numbered) {
      group_.unread = static_cast<int>(std::clamp<std::int64_t>(number, 0, 16));
    } else if (word == "bin" && number > 0) {
      rest_.remove_prefix(std::min(rest_.size(), static_cast<std::size_t>(number)));
    } else if (std::ranges::count(kNoText, word) > 0) {
      group_.skips = true;
    } else if (const auto sign = std::ranges::find(kSigns, word, &Sign::word); sign != kSigns.end()) {
      Put(std::string(sign->text));
    }
  }

  static RichText::Align AlignOf(char letter) {
    using enum RichText::Align;
    return letter == 'c' ? Center : letter == 'r' ? Right : letter == 'j' ? Justify : Left;
  }

  // A character may come in two halves.
  void PutUnit(char16_t unit) {
    const bool low = unit >= 0xDC00 && unit <= 0xDFFF;
    if (unit >= 0xD800 && unit <= 0xDBFF) {
      high_ = unit;
    } else {
      const char32_t whole = low && high_ != 0 ? 0x10000U + ((high_ - 0xD800U) << 10U) + (unit - 0xDC00U) : unit;
      const bool half = low && high_ == 0;
      unread_ = 0;
      Put(forms::ToUtf8(std::u32string(1, half ? U'\uFFFD' : whole)));
      high_ = 0;
    }
    unread_ = group_.unread;
  }

  bool Skips() const { return group_.skips || group_.hidden || group_.deleted; }

  void Put(const std::string& text) {
    if (unread_ > 0) {
      --unread_;
      return;
    }
    if (Skips()) {
      return;
    }
    auto& runs = text_.paragraphs.back().runs;
    if (runs.empty() || !(runs.back().style == group_.style)) {
      runs.push_back({.text = {}, .style = group_.style});
    }
    runs.back().text += text;
    ++written_;
  }

  void EndParagraph() {
    if (!Skips()) {
      const RichText::Align align = text_.paragraphs.back().align;
      text_.paragraphs.push_back({.runs = {}, .align = align});
      ++written_;
    }
  }

  std::string_view rest_;
  RichText text_;
  Group group_;
  std::vector<Group> groups_;
  std::size_t written_ = 0;
  int unread_ = 0;
  char32_t high_ = 0;
};

}  // namespace

RichText ReadRtf(std::string_view rtf) {
  rtf = rtf.substr(0, kMostLetterBytes);
  if (!rtf.starts_with("{\\rtf")) {
    return forms::FromPlainText(forms::Left(DecodedTemplate(rtf), kMostLetterText));
  }
  return Reader(rtf).Read();
}

}  // namespace recall
