#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace host {

// What a check wants of a text: to be equal ("= TEXT"), or to fit a glob ("~ PATTERN"). A line break is a line break,
// whichever characters make it.
class Expectation {
 public:
  static Expectation Equal(std::string text) { return {std::move(text), std::nullopt}; }
  // `written` is the pattern as failures show it.
  static Expectation Glob(std::string pattern, std::string written) { return {std::move(written), std::move(pattern)}; }

  bool Matches(std::string_view actual) const;
  // Truth values compare as such, however they are written.
  bool MatchesTruth(bool actual) const;
  const std::string& Text() const { return text_; }
  // As written: `= "Smith"`.
  std::string Describe() const;

  // Fails as a check unless it matches.
  void Check(std::string_view actual) const;

 private:
  Expectation(std::string text, std::optional<std::string> pattern)
      : text_(std::move(text)), pattern_(std::move(pattern)) {}

  std::string text_;
  std::optional<std::string> pattern_;
};

// Case-sensitive, over the whole text: "*" is any run of characters, "?" one character. Behind a backslash both, and
// the backslash, are themselves.
bool MatchesGlob(std::string_view pattern, std::string_view text);

// "on", "true", "yes", "1", "-1" and their opposites, in any case; nothing for another text.
std::optional<bool> ParseTruth(std::string_view text);

// The letters and digits alone, lower case: "Un-Link" is "unlink", "Yes/No" is "yesno".
std::string Squeezed(std::string_view text);

}  // namespace host
