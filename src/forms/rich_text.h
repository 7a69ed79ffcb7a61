#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/color.h"

namespace forms {

// Text with the few formats that a person gives it: paragraphs of runs. UTF-8.
struct RichText {
  enum class Align { Left, Center, Right, Justify };

  struct Style {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    int size = 0;  // points; 0 for the usual size
    std::optional<Color> color = {};
    std::string link = {};  // an address of the web, of mail or of a telephone

    friend bool operator==(const Style&, const Style&) = default;
  };
  struct Run {
    std::string text;  // '\n' breaks the line within the paragraph
    Style style = {};

    friend bool operator==(const Run&, const Run&) = default;
  };
  struct Paragraph {
    std::vector<Run> runs = {};
    Align align = Align::Left;
    bool bullet = false;

    friend bool operator==(const Paragraph&, const Paragraph&) = default;
  };

  std::vector<Paragraph> paragraphs;

  friend bool operator==(const RichText&, const RichText&) = default;
};

// Reads what it knows of HTML: tags that it does not know fall away and their text stays; scripts, style sheets,
// pictures and what acts by itself fall away whole. Never fails.
RichText ReadHtml(std::string_view html);
// In one way for one text, so that texts are equal when their HTML is; a text without characters is "". Blanks that
// HTML would swallow are written so that they stay.
std::string WriteHtml(const RichText& text);

// Paragraphs and lines end in CR LF.
std::string PlainText(const RichText& text);
RichText FromPlainText(std::string_view text);

}  // namespace forms
