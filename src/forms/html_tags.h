#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "forms/rich_text.h"

// What the reader and the writer of rich text know of HTML.
namespace forms {

inline constexpr int kLargestFont = 200;  // points

// A tag, or the text between two, with its entities read.
struct HtmlPiece {
  std::string tag;  // in small letters; empty for a text
  bool closing = false;
  std::vector<std::pair<std::string, std::string>> attributes = {};  // names in small letters
  std::string text = {};

  // Empty when it is not there.
  std::string Attribute(std::string_view name) const;
};

// Cuts HTML into pieces; comments, and tags whose content is no text (scripts, style sheets), are passed over.
class HtmlScanner {
 public:
  explicit HtmlScanner(std::string_view html) : rest_(html) {}
  // Nothing at the end.
  std::optional<HtmlPiece> Next();

 private:
  HtmlPiece TakeTag();
  void SkipContent(std::string_view tag);

  std::string_view rest_;
};

// Whether a tag stands in it that the reader of rich text knows.
bool HasTags(std::string_view text);
// Begins a line of its own, and ends the one before.
bool IsBlockTag(std::string_view tag);
// Gives the text in it a look, or may; the others fall away.
bool IsInlineTag(std::string_view tag);
// Has no content and no closing tag.
bool IsVoidTag(std::string_view tag);

// What the tag and its attributes change of the style around it.
void ApplyTag(const HtmlPiece& tag, RichText::Style& style);
// "center"; empty when the tag says nothing.
std::string AlignOf(const HtmlPiece& tag);

// A link that a person may follow: of the web, of mail, of a telephone; or a variable in braces that will be one. Empty
// for any other, and for one that is longer than links are.
std::string SafeLink(std::string_view link);
// With entities for what HTML has a use of its own for.
std::string EscapedHtml(std::string_view text);

}  // namespace forms
