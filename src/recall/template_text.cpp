#include "recall/template_text.h"

#include <algorithm>
#include <array>

#include "forms/text.h"

namespace recall {
namespace {

constexpr std::string_view kReference = "TEMPLATE ";
constexpr std::string_view kMarker = "<PredefinedTemplate=";
constexpr std::string_view kMarkerEnd = "/>";

// Without the quotation marks around it.
std::string_view Unquoted(std::string_view value) {
  const bool quoted =
      value.size() > 1 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front();
  return quoted ? value.substr(1, value.size() - 2) : value;
}

bool CanBeMarked(std::string_view name) {
  return !name.empty() &&
         std::ranges::none_of(name, [](char c) { return c == '<' || c == '>' || static_cast<unsigned char>(c) < ' '; });
}

// As it is listed, from its title and its file.
std::string ListedName(std::string_view title, std::string_view file) {
  return std::string(CanBeMarked(title) ? title : forms::Trim(file.substr(0, file.rfind('.'))));
}

}  // namespace

std::optional<std::string> ReferencedTemplate(std::string_view text) {
  if (!forms::EqualsIgnoringCase(text.substr(0, kReference.size()), kReference)) {
    return std::nullopt;
  }
  return std::string(forms::Trim(text.substr(kReference.size())));
}

std::string TemplateReference(std::string_view name) {
  return std::string(kReference) + std::string(name);
}

std::optional<std::string> MarkedTemplate(std::string_view text) {
  const std::size_t marker = text.find(kMarker);
  const std::size_t begin = marker == std::string_view::npos ? text.size() : marker + kMarker.size();
  const std::size_t end = text.find(kMarkerEnd, begin);
  return end == std::string_view::npos ? std::nullopt
                                       : std::optional<std::string>(forms::Trim(text.substr(begin, end - begin)));
}

std::string TemplateMarker(std::string_view name) {
  return std::string(kMarker) + std::string(name) + std::string(kMarkerEnd);
}

std::vector<PredefinedTemplate> ReadTemplateList(std::string_view ini) {
  std::vector<PredefinedTemplate> templates;
  std::string title;
  std::string file;
  const auto end_section = [&] {
    if (std::string name = ListedName(title, file); !file.empty() && CanBeMarked(name)) {
      templates.push_back({.name = std::move(name), .file = file});
    }
    title.clear();
    file.clear();
  };
  bool listed = false;
  while (!ini.empty()) {
    const std::size_t end = std::min(ini.find_first_of("\r\n"), ini.size());
    const std::string_view line = forms::Trim(ini.substr(0, end));
    ini.remove_prefix(std::min(end + 1, ini.size()));
    if (line.starts_with('[')) {
      end_section();
      listed = forms::EqualsIgnoringCase(forms::Trim(line.substr(1, line.find(']') - 1)), "TAVO EMAIL TEMPLATE");
    } else if (const std::size_t equals = line.find('='); listed && equals != std::string_view::npos) {
      const std::string_view key = forms::Trim(line.substr(0, equals));
      const std::string_view value = Unquoted(forms::Trim(line.substr(equals + 1)));
      // The first of a key counts, as everywhere on Windows.
      if (forms::EqualsIgnoringCase(key, "File") && file.empty()) {
        file = value;
      } else if (forms::EqualsIgnoringCase(key, "Title") && title.empty()) {
        title = value;
      }
    }
  }
  end_section();
  return templates;
}

std::string DecodedTemplate(std::string_view bytes) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (bytes.starts_with(kByteOrderMark)) {
    bytes.remove_prefix(kByteOrderMark.size());
  }
  if (std::string text(bytes); forms::ToUtf8(forms::ToUtf32(text)) == text) {
    return text;
  }
  // Bytes 0x80 to 0x9F; the others are the characters of their number.
  constexpr std::array<char32_t, 32> kWindows = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                                 0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
  std::u32string characters;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    characters += byte >= 0x80 && byte < 0xA0 ? kWindows.at(byte - 0x80U) : static_cast<char32_t>(byte);
  }
  return forms::ToUtf8(characters);
}

}  // namespace recall
