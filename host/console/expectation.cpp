#include "console/expectation.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "console/step_failure.h"
#include "forms/text.h"

namespace host {
namespace {

// Every line break as "\n".
std::string WithPlainBreaks(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r') {
      plain += '\n';
      i += text.substr(i, 2) == "\r\n" ? 1U : 0U;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

// The wildcards of a pattern that has been read: no characters of any text.
constexpr char32_t kAnyRun = 0x110000;
constexpr char32_t kAnyOne = 0x110001;

std::u32string ReadPattern(std::string_view pattern) {
  std::u32string read;
  const std::u32string written = forms::ToUtf32(pattern);
  for (std::size_t i = 0; i < written.size(); ++i) {
    const char32_t next = i + 1 < written.size() ? written[i + 1] : U'\0';
    if (written[i] == U'\\' && (next == U'*' || next == U'?' || next == U'\\')) {
      read += next;
      ++i;
    } else {
      read += written[i] == U'*' ? kAnyRun : written[i] == U'?' ? kAnyOne : written[i];
    }
  }
  return read;
}

}  // namespace

bool MatchesGlob(std::string_view pattern, std::string_view text) {
  const std::u32string wanted = ReadPattern(pattern);
  const std::u32string given = forms::ToUtf32(text);
  std::size_t p = 0;
  std::size_t t = 0;
  std::size_t star = std::u32string::npos;  // the last "*" and what it has taken up to
  std::size_t taken = 0;
  while (t < given.size()) {
    if (p < wanted.size() && wanted[p] == kAnyRun) {
      star = p++;
      taken = t;
    } else if (p < wanted.size() && (wanted[p] == kAnyOne || wanted[p] == given[t])) {
      ++p;
      ++t;
    } else if (star != std::u32string::npos) {
      p = star + 1;
      t = ++taken;
    } else {
      return false;
    }
  }
  return std::all_of(wanted.begin() + static_cast<std::ptrdiff_t>(p), wanted.end(),
                     [](char32_t c) { return c == kAnyRun; });
}

bool Expectation::Matches(std::string_view actual) const {
  const std::string plain = WithPlainBreaks(actual);
  return pattern_ ? MatchesGlob(WithPlainBreaks(*pattern_), plain) : WithPlainBreaks(text_) == plain;
}

bool Expectation::MatchesTruth(bool actual) const {
  return pattern_ ? Matches(actual ? "on" : "off") || Matches(actual ? "True" : "False") : ParseTruth(text_) == actual;
}

std::string Expectation::Describe() const {
  return (pattern_ ? "~ " : "= ") + Quoted(text_);
}

void Expectation::Check(std::string_view actual) const {
  if (!Matches(actual)) {
    Differ(Describe(), Quoted(actual));
  }
}

std::optional<bool> ParseTruth(std::string_view text) {
  constexpr std::array kTrue = {"on", "true", "yes", "1", "-1"};
  constexpr std::array kFalse = {"off", "false", "no", "0"};
  const auto same = [&](const char* word) { return forms::EqualsIgnoringCase(text, word); };
  if (std::ranges::any_of(kTrue, same)) {
    return true;
  }
  if (std::ranges::any_of(kFalse, same)) {
    return false;
  }
  return std::nullopt;
}

std::string Squeezed(std::string_view text) {
  std::string squeezed;
  for (const char c : text) {
    if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
      squeezed += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
  }
  return squeezed;
}

}  // namespace host
