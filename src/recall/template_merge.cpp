#include "recall/template_merge.h"

#include <algorithm>
#include <vector>

#include "forms/html_tags.h"
#include "recall/template_variables.h"

namespace recall {
namespace {

std::string Said(std::string value, bool html) {
  std::erase_if(value, [](char c) { return c == '{' || c == '}'; });
  if (!html) {
    return value;
  }
  std::string safe;
  for (const char c : forms::EscapedHtml(value)) {
    switch (c) {
      case '\'':  // an attribute may stand between them
        safe += "&#39;";
        break;
      case '\n':
        safe += "<br>";
        break;
      case '\r':
        break;
      default:
        safe += c;
    }
  }
  return safe;
}

}  // namespace

std::string Merged(std::string_view text, const TemplateValues& values, bool html) {
  // A variable ends at its closing brace; its value may complete the name of one around it.
  std::string merged;
  std::vector<std::size_t> opened;
  for (const char c : text) {
    if (c == '{') {
      opened.push_back(merged.size());
    }
    merged += c;
    if (c != '}' || opened.empty()) {
      continue;
    }
    const std::string_view variable = std::string_view(merged).substr(opened.back());
    if (IsTemplateVariable(variable)) {
      const auto value = values.find(variable);
      const std::string said = value == values.end() ? std::string() : Said(value->second, html);
      merged.resize(opened.back());
      merged += said;
    }
    opened.pop_back();
  }
  return merged;
}

}  // namespace recall
