#include "recall/template_merge.h"

#include <algorithm>
#include <vector>

#include "forms/html_tags.h"
#include "forms/rich_text.h"
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

std::string WithWholeVariables(std::string_view html) {
  forms::RichText text = forms::ReadHtml(html);
  for (forms::RichText::Paragraph& paragraph : text.paragraphs) {
    std::string plain;
    for (const forms::RichText::Run& run : paragraph.runs) {
      plain += run.text;
    }
    std::vector<forms::RichText::Run> runs;
    std::size_t begin = 0;  // of the run
    std::size_t whole = 0;  // where the last variable ends
    for (forms::RichText::Run& run : paragraph.runs) {
      const std::size_t end = begin + run.text.size();
      run.text.erase(0, whole > begin ? whole - begin : 0);
      begin = std::max(begin, whole);
      for (std::size_t open = plain.find('{', begin); open < end; open = plain.find('{', open + 1)) {
        constexpr std::size_t kLongest = 80;
        const std::string_view variable = std::string_view(plain).substr(open, kLongest);
        const std::size_t size = variable.find('}') + 1;
        if (size > 0 && open + size > end && IsTemplateVariable(variable.substr(0, size))) {
          whole = open + size;
          run.text += plain.substr(end, whole - end);
          break;
        }
      }
      if (!run.text.empty()) {
        runs.push_back(std::move(run));
      }
      begin = end;
    }
    paragraph.runs = std::move(runs);
  }
  return forms::WriteHtml(text);
}

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
