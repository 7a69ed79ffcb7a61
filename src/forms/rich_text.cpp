#include "forms/rich_text.h"

#include <algorithm>
#include <array>

#include "forms/html_tags.h"
#include "forms/text.h"

namespace forms {
namespace {

using Align = RichText::Align;
using Style = RichText::Style;

constexpr std::string_view kNoBreakSpace = "\u00A0";

struct NamedAlign {
  std::string_view name;
  Align align;
};
constexpr std::array kAligns = {NamedAlign{"left", Align::Left}, NamedAlign{"center", Align::Center},
                                NamedAlign{"right", Align::Right}, NamedAlign{"justify", Align::Justify}};

void AppendRun(RichText::Paragraph& paragraph, std::string_view text, const Style& style) {
  if (text.empty()) {
    return;
  }
  if (paragraph.runs.empty() || !(paragraph.runs.back().style == style)) {
    paragraph.runs.push_back({.text = {}, .style = style});
  }
  paragraph.runs.back().text += text;
}

void DropLast(RichText::Paragraph& paragraph) {
  paragraph.runs.back().text.pop_back();
  if (paragraph.runs.back().text.empty()) {
    paragraph.runs.pop_back();
  }
}

// Tags and texts, one after the other, become paragraphs.
class Reader {
 public:
  RichText Read(std::string_view html) {
    HtmlScanner scanner(html);
    while (const auto piece = scanner.Next()) {
      if (piece->tag.empty()) {
        Put(piece->text);
      } else if (piece->closing) {
        Close(piece->tag);
      } else {
        Open(*piece);
      }
    }
    EndParagraph();
    return std::move(text_);
  }

 private:
  struct Opened {
    std::string tag;
    Style style;
    Align align;
    bool bullet;
  };

  void Open(const HtmlPiece& piece) {
    if (piece.tag == "br") {
      BreakLine();
      return;
    }
    if (IsBlockTag(piece.tag)) {
      EndParagraph();
    }
    const bool block = IsBlockTag(piece.tag);
    if (IsVoidTag(piece.tag) || (!block && !IsInlineTag(piece.tag))) {
      return;
    }
    // A paragraph and an entry end where the next one begins.
    if ((piece.tag == "p" || piece.tag == "li") && !opened_.empty() && opened_.back().tag == piece.tag) {
      Close(piece.tag);
    }
    constexpr std::size_t kDeepest = 200;
    if (opened_.size() == kDeepest) {
      return;
    }
    opened_.push_back({piece.tag, style_, align_, bullet_});
    bullet_ = bullet_ || piece.tag == "li";
    ApplyTag(piece, style_);
    const std::string align = AlignOf(piece);
    if (const auto known = std::ranges::find(kAligns, align, &NamedAlign::name); known != kAligns.end()) {
      align_ = known->align;
    }
  }

  // Closes what was opened inside too; a closing tag of nothing is none.
  void Close(std::string_view tag) {
    if (IsBlockTag(tag)) {
      EndParagraph();
    }
    const auto opened = std::find_if(opened_.rbegin(), opened_.rend(), [tag](const Opened& o) { return o.tag == tag; });
    if (opened == opened_.rend()) {
      return;
    }
    style_ = opened->style;
    align_ = opened->align;
    bullet_ = opened->bullet;
    opened_.erase(std::prev(opened.base()), opened_.end());
  }

  // Blanks in a row are one; those at either end of a line are none. A no-break space is a blank that stays.
  void Put(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
      const char c = text[i];
      if (text.substr(i).starts_with(kNoBreakSpace)) {
        PutBlank();
        Append(" ", style_);
        i += kNoBreakSpace.size();
        begun_ = true;
      } else if (c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f') {
        if (!blank_ && !line_start_) {
          blank_ = style_;
        }
        ++i;
        continue;
      } else {
        PutBlank();
        if (static_cast<unsigned char>(c) >= ' ' && c != '\x7F') {
          Append(text.substr(i, 1), style_);
          begun_ = true;
        }
        ++i;
      }
      line_start_ = false;
    }
  }

  // Many runs of one long link would make a little HTML huge.
  void Append(std::string_view text, Style& style) {
    constexpr std::size_t kMostLinks = 200'000;  // bytes
    const bool begins = paragraph_.runs.empty() || !(paragraph_.runs.back().style == style);
    links_ += begins ? style.link.size() : 0;
    if (links_ > kMostLinks) {
      style.link.clear();
    }
    AppendRun(paragraph_, text, style);
  }

  void PutBlank() {
    if (blank_) {
      Append(" ", *blank_);
      blank_.reset();
    }
  }

  void BreakLine() {
    blank_.reset();
    Append("\n", style_);
    begun_ = true;
    line_start_ = true;
  }

  // The last break of a paragraph is its end.
  void EndParagraph() {
    blank_.reset();
    if (begun_) {
      if (!paragraph_.runs.empty() && paragraph_.runs.back().text.ends_with('\n')) {
        DropLast(paragraph_);
      }
      paragraph_.align = align_;
      paragraph_.bullet = bullet_;
      text_.paragraphs.push_back(std::move(paragraph_));
    }
    paragraph_ = {};
    begun_ = false;
    line_start_ = true;
  }

  RichText text_;
  RichText::Paragraph paragraph_;
  std::vector<Opened> opened_;
  Style style_;
  Align align_ = Align::Left;
  bool bullet_ = false;
  std::size_t links_ = 0;       // bytes of all links so far
  std::optional<Style> blank_;  // one that is written when a character follows
  bool begun_ = false;          // the paragraph has something in it
  bool line_start_ = true;
};

std::string Opening(const Style& style) {
  std::string tags;
  if (!style.link.empty()) {
    tags += "<a href=\"" + EscapedHtml(style.link) + "\">";
  }
  if (style.size > 0 || style.color) {
    std::string css = style.size > 0 ? "font-size:" + std::to_string(style.size) + "pt" : "";
    css += style.color ? (css.empty() ? "color:" : ";color:") + ColorText(*style.color) : "";
    tags += "<span style=\"" + css + "\">";
  }
  tags += style.bold ? "<b>" : "";
  tags += style.italic ? "<i>" : "";
  tags += style.underline ? "<u>" : "";
  return tags;
}

std::string Closing(const Style& style) {
  std::string tags;
  tags += style.underline ? "</u>" : "";
  tags += style.italic ? "</i>" : "";
  tags += style.bold ? "</b>" : "";
  tags += style.size > 0 || style.color ? "</span>" : "";
  tags += style.link.empty() ? "" : "</a>";
  return tags;
}

// One style for one look, neighbours of one style joined, no character that HTML cannot carry.
RichText::Paragraph Canonical(const RichText::Paragraph& paragraph) {
  RichText::Paragraph canonical{.runs = {}, .align = paragraph.align, .bullet = paragraph.bullet};
  for (const RichText::Run& run : paragraph.runs) {
    Style style = run.style;
    style.size = std::clamp(style.size, 0, kLargestFont);
    style.link = SafeLink(style.link);
    for (std::size_t i = 0; i < run.text.size(); ++i) {
      const char c = run.text[i];
      if (std::string_view(run.text).substr(i).starts_with(kNoBreakSpace)) {
        AppendRun(canonical, " ", style);
        i += kNoBreakSpace.size() - 1;
      } else if (c == '\t') {
        AppendRun(canonical, " ", style);
      } else if (static_cast<unsigned char>(c) >= ' ' ? c != '\x7F' : c == '\n') {
        AppendRun(canonical, {&c, 1}, style);
      }
    }
  }
  return canonical;
}

// `before` and `after` are the characters around the run.
std::string Escaped(const std::string& text, char before, char after) {
  std::string html;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char left = i == 0 ? before : text[i - 1];
    const char right = i + 1 == text.size() ? after : text[i + 1];
    if (text[i] == '\n') {
      html += "<br>";
    } else if (text[i] == ' ' && (left == ' ' || left == '\n' || right == '\n')) {
      html += "&nbsp;";
    } else {
      html += EscapedHtml({&text[i], 1});
    }
  }
  return html;
}

// A break at the end is doubled, for the last one only ends the paragraph.
std::string Content(const RichText::Paragraph& paragraph) {
  std::string html;
  char before = '\n';
  for (std::size_t i = 0; i < paragraph.runs.size(); ++i) {
    const RichText::Run& run = paragraph.runs[i];
    const char after = i + 1 < paragraph.runs.size() ? paragraph.runs[i + 1].text.front() : '\n';
    html += Opening(run.style) + Escaped(run.text, before, after) + Closing(run.style);
    before = run.text.back();
  }
  return html + (before == '\n' ? "<br>" : "");
}

}  // namespace

RichText ReadHtml(std::string_view html) {
  return Reader().Read(ToUtf8(ToUtf32(html)));
}

std::string WriteHtml(const RichText& text) {
  std::string html;
  bool in_list = false;
  bool empty = true;
  for (const RichText::Paragraph& each : text.paragraphs) {
    const RichText::Paragraph paragraph = Canonical(each);
    empty = empty && paragraph.runs.empty() && text.paragraphs.size() == 1;
    if (paragraph.bullet != in_list) {
      in_list = paragraph.bullet;
      html += in_list ? "<ul>" : "</ul>";
    }
    const std::string tag = paragraph.bullet ? "li" : "p";
    html += "<" + tag;
    if (paragraph.align != Align::Left) {
      const auto named = std::ranges::find(kAligns, paragraph.align, &NamedAlign::align);
      html += " style=\"text-align:" + std::string(named->name) + "\"";
    }
    html += ">" + Content(paragraph) + "</" + tag + ">";
  }
  html += in_list ? "</ul>" : "";
  return empty ? "" : html;
}

std::string PlainText(const RichText& text) {
  std::string plain;
  for (const RichText::Paragraph& paragraph : text.paragraphs) {
    plain += &paragraph == &text.paragraphs.front() ? "" : "\r\n";
    for (const RichText::Run& run : paragraph.runs) {
      for (const char c : run.text) {
        plain += c == '\n' ? "\r\n" : std::string_view(&c, 1);
      }
    }
  }
  return plain;
}

RichText FromPlainText(std::string_view text) {
  RichText rich;
  if (text.empty()) {
    return rich;
  }
  rich.paragraphs.emplace_back();
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool both = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (text[i] == '\r' || text[i] == '\n') {
      rich.paragraphs.emplace_back();
      i += both ? 1U : 0U;
    } else {
      AppendRun(rich.paragraphs.back(), text.substr(i, 1), {});
    }
  }
  return rich;
}

}  // namespace forms
