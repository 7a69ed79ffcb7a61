#include "forms/html_tags.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "forms/text.h"

namespace forms {
namespace {

constexpr bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

constexpr bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

template <std::size_t N>
bool IsOneOf(const std::array<std::string_view, N>& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

struct Entity {
  std::string_view name;
  std::string_view text;
};
constexpr std::array kEntities = {
    Entity{"amp", "&"},         Entity{"lt", "<"},          Entity{"gt", ">"},          Entity{"quot", "\""},
    Entity{"apos", "'"},        Entity{"nbsp", "\u00A0"},   Entity{"copy", "\u00A9"},   Entity{"reg", "\u00AE"},
    Entity{"trade", "\u2122"},  Entity{"euro", "\u20AC"},   Entity{"pound", "\u00A3"},  Entity{"cent", "\u00A2"},
    Entity{"hellip", "\u2026"}, Entity{"ndash", "\u2013"},  Entity{"mdash", "\u2014"},  Entity{"lsquo", "\u2018"},
    Entity{"rsquo", "\u2019"},  Entity{"ldquo", "\u201C"},  Entity{"rdquo", "\u201D"},  Entity{"bull", "\u2022"},
    Entity{"middot", "\u00B7"}, Entity{"deg", "\u00B0"},    Entity{"frac12", "\u00BD"}, Entity{"times", "\u00D7"},
    Entity{"eacute", "\u00E9"}, Entity{"egrave", "\u00E8"}, Entity{"ntilde", "\u00F1"}, Entity{"auml", "\u00E4"},
    Entity{"ouml", "\u00F6"},   Entity{"uuml", "\u00FC"},   Entity{"szlig", "\u00DF"},
};

// The character of "#233" or "#xE9"; nothing when it is none.
std::optional<std::string> NumberedCharacter(std::string_view digits) {
  digits.remove_prefix(1);
  const bool hexadecimal = digits.starts_with('x') || digits.starts_with('X');
  digits.remove_prefix(hexadecimal ? 1 : 0);
  std::uint32_t code = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, code, hexadecimal ? 16 : 10);
  if (digits.empty() || stop != end || error == std::errc::invalid_argument) {
    return std::nullopt;
  }
  constexpr char32_t kLast = 0x10FFFF;
  constexpr char32_t kReplacement = 0xFFFD;
  const bool is_character = error == std::errc() && code != 0 && code <= kLast && (code < 0xD800 || code > 0xDFFF);
  const char32_t character = is_character ? static_cast<char32_t>(code) : kReplacement;
  return ToUtf8({&character, 1});
}

// What is no entity stays as it is.
std::string WithoutEntities(std::string_view text) {
  constexpr std::size_t kLongest = 10;
  std::string plain;
  while (!text.empty()) {
    const std::size_t end = text.front() == '&' ? text.substr(0, kLongest).find(';') : std::string_view::npos;
    const std::string_view name = end == std::string_view::npos ? std::string_view() : text.substr(1, end - 1);
    std::optional<std::string> read;
    if (name.starts_with('#')) {
      read = NumberedCharacter(name);
    } else if (const auto known = std::ranges::find(kEntities, name, &Entity::name); known != kEntities.end()) {
      read = std::string(known->text);
    }
    plain += read ? *read : std::string(1, text.front());
    text.remove_prefix(read ? end + 1 : 1);
  }
  return plain;
}

struct NamedColor {
  std::string_view name;
  std::string_view text;
};
constexpr std::array kColors = {
    NamedColor{"black", "#000000"},  NamedColor{"silver", "#C0C0C0"}, NamedColor{"gray", "#808080"},
    NamedColor{"grey", "#808080"},   NamedColor{"white", "#FFFFFF"},  NamedColor{"maroon", "#800000"},
    NamedColor{"red", "#FF0000"},    NamedColor{"purple", "#800080"}, NamedColor{"fuchsia", "#FF00FF"},
    NamedColor{"green", "#008000"},  NamedColor{"lime", "#00FF00"},   NamedColor{"olive", "#808000"},
    NamedColor{"yellow", "#FFFF00"}, NamedColor{"navy", "#000080"},   NamedColor{"blue", "#0000FF"},
    NamedColor{"teal", "#008080"},   NamedColor{"aqua", "#00FFFF"},   NamedColor{"orange", "#FFA500"},
};

// "#F80", "#FF8800", "rgb(255, 136, 0)" or a name.
std::optional<Color> ReadColor(std::string_view text) {
  const std::string color = ToLower(Trim(text));
  if (color.size() == 4 && color[0] == '#') {
    return ParseColor(std::string{'#', color[1], color[1], color[2], color[2], color[3], color[3]});
  }
  if (color.starts_with("rgb")) {
    std::array<std::uint8_t, 3> parts{};
    std::size_t at = 0;
    for (std::uint8_t& part : parts) {
      at = color.find_first_of("0123456789", at);
      if (at == std::string::npos ||
          std::from_chars(color.data() + at, color.data() + color.size(), part).ec != std::errc()) {
        return std::nullopt;
      }
      at = color.find_first_of(", ", at);
    }
    return Color{parts[0], parts[1], parts[2]};
  }
  if (const auto named = std::ranges::find(kColors, color, &NamedColor::name); named != kColors.end()) {
    return ParseColor(named->text);
  }
  return ParseColor(color);
}

// Points of "12pt" or "16px"; nothing for sizes that depend on others.
std::optional<int> ReadSize(std::string_view text) {
  text = Trim(text);
  double number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const std::string unit = ToLower(Trim({stop, static_cast<std::size_t>(text.data() + text.size() - stop)}));
  constexpr double kPointsOfPixel = 0.75;
  if (error != std::errc() || (unit != "pt" && unit != "px") || number <= 0 || number > 1000) {
    return std::nullopt;
  }
  return std::clamp(static_cast<int>(std::lround(unit == "px" ? number * kPointsOfPixel : number)), 1, kLargestFont);
}

// Calls `apply` with the name and the value of each rule of a style attribute.
template <typename Apply>
void EachRule(std::string_view css, const Apply& apply) {
  while (!css.empty()) {
    const std::size_t end = std::min(css.find(';'), css.size());
    const std::string_view rule = css.substr(0, end);
    if (const std::size_t colon = rule.find(':'); colon != std::string_view::npos) {
      apply(ToLower(Trim(rule.substr(0, colon))), ToLower(Trim(rule.substr(colon + 1))));
    }
    css.remove_prefix(std::min(end + 1, css.size()));
  }
}

void ApplyRule(std::string_view name, std::string_view value, RichText::Style& style) {
  if (name == "font-weight") {
    constexpr std::array<std::string_view, 6> kBold = {"bold", "bolder", "600", "700", "800", "900"};
    style.bold = IsOneOf(kBold, value);
  } else if (name == "font-style") {
    style.italic = value == "italic" || value == "oblique";
  } else if (name == "text-decoration" || name == "text-decoration-line") {
    style.underline = value.find("underline") != std::string_view::npos;
  } else if (name == "color") {
    const auto color = ReadColor(value);
    style.color = color ? color : style.color;
  } else if (name == "font-size") {
    style.size = ReadSize(value).value_or(style.size);
  }
}

void ApplyFont(const HtmlPiece& tag, RichText::Style& style) {
  constexpr std::array kPoints = {8, 10, 12, 14, 18, 24, 36};  // of size 1 to 7
  const std::string size = tag.Attribute("size");
  if (size.size() == 1 && size[0] >= '1' && size[0] <= '7') {
    style.size = kPoints[static_cast<std::size_t>(size[0] - '1')];
  }
  const auto color = ReadColor(tag.Attribute("color"));
  style.color = color ? color : style.color;
}

// "{Office Website Address}"
bool IsVariable(std::string_view link) {
  constexpr std::size_t kLongest = 80;
  return link.size() > 2 && link.size() < kLongest && link.front() == '{' && link.back() == '}' &&
         std::ranges::all_of(link.substr(1, link.size() - 2),
                             [](char c) { return IsLetter(c) || IsDigit(c) || c == ' ' || c == ','; });
}

}  // namespace

std::string HtmlPiece::Attribute(std::string_view name) const {
  for (const auto& [known, value] : attributes) {
    if (known == name) {
      return value;
    }
  }
  return {};
}

std::optional<HtmlPiece> HtmlScanner::Next() {
  while (!rest_.empty()) {
    if (rest_.starts_with("<!--")) {
      const std::size_t end = rest_.find("-->", 4);
      rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 3);
    } else if (rest_.starts_with("<!") || rest_.starts_with("<?")) {
      rest_.remove_prefix(std::min(rest_.find('>'), rest_.size() - 1) + 1);
    } else if (rest_.size() > 1 && rest_[0] == '<' &&
               (IsLetter(rest_[1]) || (rest_[1] == '/' && rest_.size() > 2 && IsLetter(rest_[2])))) {
      HtmlPiece tag = TakeTag();
      constexpr std::array<std::string_view, 13> kNoText = {"script",   "style",  "head", "title", "template",
                                                            "iframe",   "object", "svg",  "math",  "noscript",
                                                            "textarea", "select", "audio"};
      if (!tag.closing && IsOneOf(kNoText, tag.tag)) {
        SkipContent(tag.tag);
        continue;
      }
      return tag;
    } else {
      // A sign that begins no tag is a character.
      const std::size_t end = std::min(rest_.find('<', 1), rest_.size());
      HtmlPiece piece{.tag = {}, .text = WithoutEntities(rest_.substr(0, end))};
      rest_.remove_prefix(end);
      return piece;
    }
  }
  return std::nullopt;
}

HtmlPiece HtmlScanner::TakeTag() {
  const auto take_while = [this](auto belongs) {
    std::size_t length = 0;
    while (length < rest_.size() && belongs(rest_[length])) {
      ++length;
    }
    const std::string_view taken = rest_.substr(0, length);
    rest_.remove_prefix(length);
    return taken;
  };
  const auto take_one = [this] { rest_.remove_prefix(rest_.empty() ? 0 : 1); };
  HtmlPiece tag;
  take_one();
  tag.closing = rest_.starts_with('/');
  rest_.remove_prefix(tag.closing ? 1 : 0);
  tag.tag = ToLower(take_while([](char c) { return !IsBlank(c) && c != '>' && c != '/'; }));
  while (!rest_.empty() && rest_.front() != '>') {
    take_while([](char c) { return IsBlank(c) || c == '/'; });
    const std::string name =
        ToLower(take_while([](char c) { return !IsBlank(c) && c != '=' && c != '>' && c != '/'; }));
    take_while(IsBlank);
    std::string_view value;
    if (rest_.starts_with('=')) {
      take_one();
      take_while(IsBlank);
      if (rest_.starts_with('"') || rest_.starts_with('\'')) {
        const char quote = rest_.front();
        take_one();
        value = take_while([quote](char c) { return c != quote; });
        take_one();
      } else {
        value = take_while([](char c) { return !IsBlank(c) && c != '>'; });
      }
    }
    if (!name.empty()) {
      tag.attributes.emplace_back(name, WithoutEntities(value));
    }
  }
  take_one();
  return tag;
}

void HtmlScanner::SkipContent(std::string_view tag) {
  const std::string end = "</" + std::string(tag);
  const auto same = [](char a, char b) { return ToLower({&a, 1}) == ToLower({&b, 1}); };
  const auto found = std::search(rest_.begin(), rest_.end(), end.begin(), end.end(), same);
  rest_.remove_prefix(static_cast<std::size_t>(found - rest_.begin()));
  rest_.remove_prefix(rest_.empty() ? 0 : std::min(rest_.find('>'), rest_.size() - 1) + 1);
}

bool HasTags(std::string_view text) {
  constexpr std::array<std::string_view, 10> kInline = {"b", "strong", "th",   "i", "em",
                                                        "u", "ins",    "font", "a", "span"};
  HtmlScanner scanner(text);
  while (const auto piece = scanner.Next()) {
    if (IsBlockTag(piece->tag) || IsVoidTag(piece->tag) || IsOneOf(kInline, piece->tag)) {
      return true;
    }
  }
  return false;
}

bool IsBlockTag(std::string_view tag) {
  constexpr std::array<std::string_view, 30> kBlocks = {
      "p",       "div",    "li",     "ul",    "ol",    "h1",  "h2",   "h3",         "h4",     "h5",
      "h6",      "table",  "tr",     "tbody", "thead", "pre", "hr",   "blockquote", "center", "body",
      "section", "header", "footer", "dl",    "dt",    "dd",  "form", "fieldset",   "html",   "address"};
  return IsOneOf(kBlocks, tag);
}

bool IsInlineTag(std::string_view tag) {
  constexpr std::array<std::string_view, 26> kInline = {
      "a",  "b",   "strong", "i",     "em",  "u",   "ins", "font", "span",  "td",   "th",   "caption", "s",
      "tt", "del", "strike", "small", "big", "sub", "sup", "code", "label", "abbr", "cite", "mark",    "q"};
  return IsOneOf(kInline, tag);
}

bool IsVoidTag(std::string_view tag) {
  constexpr std::array<std::string_view, 11> kVoid = {"br",   "img", "hr",     "input", "meta", "link",
                                                      "base", "col", "source", "embed", "wbr"};
  return IsOneOf(kVoid, tag);
}

void ApplyTag(const HtmlPiece& tag, RichText::Style& style) {
  const bool heading = tag.tag.size() == 2 && tag.tag[0] == 'h' && tag.tag[1] >= '1' && tag.tag[1] <= '6';
  if (tag.tag == "b" || tag.tag == "strong" || tag.tag == "th" || heading) {
    style.bold = true;
  } else if (tag.tag == "i" || tag.tag == "em") {
    style.italic = true;
  } else if (tag.tag == "u" || tag.tag == "ins") {
    style.underline = true;
  } else if (tag.tag == "font") {
    ApplyFont(tag, style);
  } else if (tag.tag == "a") {
    style.link = SafeLink(tag.Attribute("href"));
  }
  EachRule(tag.Attribute("style"),
           [&style](const std::string& name, const std::string& value) { ApplyRule(name, value, style); });
}

std::string AlignOf(const HtmlPiece& tag) {
  std::string align = tag.tag == "center" ? "center" : IsBlockTag(tag.tag) ? ToLower(tag.Attribute("align")) : "";
  EachRule(tag.Attribute("style"), [&align](const std::string& name, const std::string& value) {
    align = name == "text-align" ? value : align;
  });
  return align;
}

std::string SafeLink(std::string_view link) {
  std::string shown;
  // Blanks within stay: a template's variable has them.
  std::ranges::copy_if(link, std::back_inserter(shown),
                       [](char c) { return static_cast<unsigned char>(c) >= ' ' && c != '\x7F'; });
  std::string safe(Trim(shown));
  constexpr std::size_t kLongest = 2000;
  if (safe.size() > kLongest || IsVariable(safe)) {
    return safe.size() > kLongest ? std::string() : safe;
  }
  constexpr std::array<std::string_view, 4> kKinds = {"http://", "https://", "mailto:", "tel:"};
  const std::string lower = ToLower(safe);
  return std::ranges::any_of(kKinds, [&lower](std::string_view kind) { return lower.starts_with(kind); }) ? safe : "";
}

std::string EscapedHtml(std::string_view text) {
  std::string html;
  for (const char c : text) {
    switch (c) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      default:
        html += c;
    }
  }
  return html;
}

}  // namespace forms
