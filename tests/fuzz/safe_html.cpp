#include "fuzz/safe_html.h"

#include <regex>
#include <string>

namespace fuzz {
namespace {

bool IsSafeTag(const std::string& tag) {
  static const std::regex plain(
      "</?(p|ul|li|b|i|u|br|span|a)>|<(p|li) style=\"text-align:(center|right|justify)\">|"
      "<span style=\"[-a-z0-9A-F:;#]*\">");
  // A pattern over a long link would take the stack.
  constexpr std::string_view kLink = "<a href=\"";
  if (!tag.starts_with(kLink) || !tag.ends_with("\">")) {
    return tag.size() < 100 && std::regex_match(tag, plain);
  }
  const std::string_view link = std::string_view(tag).substr(kLink.size(), tag.size() - kLink.size() - 2);
  static const std::regex variable("\\{[A-Za-z0-9 ,]{1,80}\\}");
  if (link.size() < 90 && std::regex_match(std::string(link), variable)) {
    return true;
  }
  const std::string_view begin = link.substr(0, link.find(':') + 1);
  static const std::regex kinds("https?:|mailto:|tel:", std::regex::icase);
  return begin.size() < 10 && std::regex_match(std::string(begin), kinds) &&
         link.find_first_of("<>\"\r\n") == std::string_view::npos;
}

}  // namespace

bool IsSafeHtml(std::string_view html) {
  for (std::size_t at = html.find('<'); at != std::string_view::npos; at = html.find('<', at + 1)) {
    const std::size_t end = html.find('>', at);
    if (end == std::string_view::npos || !IsSafeTag(std::string(html.substr(at, end + 1 - at)))) {
      return false;
    }
  }
  return true;
}

}  // namespace fuzz
