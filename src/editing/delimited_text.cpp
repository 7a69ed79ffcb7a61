#include "editing/delimited_text.h"

#include <utility>

namespace editing {
namespace {

bool IsNumber(std::string_view cell) {
  return (cell.front() == '+' || cell.front() == '-') &&
         cell.find_first_not_of("0123456789 .,()", 1) == std::string_view::npos &&
         cell.find_first_of("0123456789") != std::string_view::npos;
}

// Blanks at an end are lost to some readers without quotes.
bool NeedsQuotes(std::string_view cell, char separator) {
  return cell.find_first_of("\"\r\n") != std::string_view::npos || cell.find(separator) != std::string_view::npos ||
         cell.starts_with(' ') || cell.ends_with(' ');
}

}  // namespace

std::string Harmless(std::string_view cell) {
  constexpr std::string_view kBegins = "=+-@\t\r";
  const bool formula = !cell.empty() && kBegins.find(cell.front()) != std::string_view::npos && !IsNumber(cell);
  return (formula ? "'" : "") + std::string(cell);
}

void AddDelimitedRow(std::string& text, const std::vector<std::string>& cells, char separator) {
  bool first = true;
  for (const std::string& cell : cells) {
    if (!std::exchange(first, false)) {
      text += separator;
    }
    const std::string harmless = Harmless(cell);
    if (!NeedsQuotes(harmless, separator)) {
      text += harmless;
      continue;
    }
    text += '"';
    for (const char c : harmless) {
      text.append(c == '"' ? 2 : 1, c);
    }
    text += '"';
  }
  text += "\r\n";
}

}  // namespace editing
