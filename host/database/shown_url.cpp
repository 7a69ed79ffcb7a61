#include "database/shown_url.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "forms/text.h"

namespace host {
namespace {

constexpr std::string_view kHidden = "***";

bool IsNameCharacter(char c) {
  return forms::IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

// Where the value ends that begins at `from`: in quotes or braces behind these, else before what parts values.
std::size_t EndOfValue(const std::string& url, std::size_t from) {
  const char open = from < url.size() ? url[from] : '\0';
  if (open == '{' || open == '\'' || open == '"') {
    const char close = open == '{' ? '}' : open;
    std::size_t end = url.find(close, from + 1);
    // A closing sign that is doubled stands for itself.
    while (end != std::string::npos && end + 1 < url.size() && url[end + 1] == close) {
      end = url.find(close, end + 2);
    }
    return end == std::string::npos ? url.size() : end + 1;
  }
  // What has no name of its own behind that is more of the value, which was not put in quotes.
  std::size_t end = std::min(url.find_first_of(";&", from), url.size());
  while (end < url.size()) {
    const std::size_t next = std::min(url.find_first_of(";&", end + 1), url.size());
    if (next == end + 1 || url.find('=', end) < next) {
      break;
    }
    end = next;
  }
  return end;
}

// "password=...", "PWD=..." and the like.
void HideNamed(std::string& url, std::string_view name) {
  for (std::size_t at = 0; at + name.size() < url.size(); ++at) {
    if (!forms::EqualsIgnoringCase(std::string_view(url).substr(at, name.size()), name) ||
        (at > 0 && IsNameCharacter(url[at - 1]))) {
      continue;
    }
    const std::size_t equals = url.find_first_not_of(' ', at + name.size());
    if (equals == std::string::npos || url[equals] != '=') {
      continue;
    }
    const std::size_t value = std::min(url.find_first_not_of(' ', equals + 1), url.size());
    url.replace(value, EndOfValue(url, value) - value, kHidden);
    at = value + kHidden.size() - 1;
  }
}

}  // namespace

std::string ShownUrl(const std::string& url) {
  std::string shown = url;
  const std::size_t scheme = shown.find(':');
  if (scheme != std::string::npos && !shown.starts_with("sqlite:") && !shown.starts_with("odbc:")) {
    // A password that was not written as a URL wants it may hold any sign itself.
    const std::size_t at = shown.rfind('@');
    const std::size_t colon = shown.find(':', scheme + 1);
    if (at != std::string::npos && colon < at) {
      shown.replace(colon + 1, at - colon - 1, kHidden);
    }
  }
  for (const std::string_view name : std::array<std::string_view, 4>{"password", "pwd", "passwd", "sslpassword"}) {
    HideNamed(shown, name);
  }
  return shown;
}

}  // namespace host
