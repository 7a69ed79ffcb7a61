#include "console/step_words.h"

#include <algorithm>
#include <cctype>
#include <charconv>

#include "console/step_failure.h"
#include "forms/text.h"

namespace host {
namespace {

bool IsSign(const Word& word) {
  return !word.quoted && (word.text == "=" || word.text == "~");
}

bool IsNameCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '-';
}

// "${" that no name and "}" follow stands for itself.
std::string Expand(const std::string& text, const Variables& variables) {
  std::string expanded;
  std::size_t at = 0;
  for (std::size_t open = text.find("${"); open != std::string::npos; open = text.find("${", open + 2)) {
    const std::size_t close = text.find('}', open);
    const std::string name = close == std::string::npos ? "" : text.substr(open + 2, close - open - 2);
    if (name.empty() || !std::ranges::all_of(name, IsNameCharacter)) {
      continue;
    }
    const auto variable = variables.find(name);
    if (variable == variables.end()) {
      Fail("there is no variable " + name);
    }
    expanded += text.substr(at, open - at) + variable->second;
    if (expanded.size() > kLongestText) {
      Fail("with its variables the word is longer than " + std::to_string(kLongestText) + " bytes");
    }
    at = close + 1;
  }
  return expanded + text.substr(at);
}

}  // namespace

StepWords::StepWords(const Line& line, const Variables& variables) : words_(line.words) {
  if (!line.error.empty()) {
    Fail(line.error);
  }
  for (Word& word : words_) {
    word.text = Expand(word.text, variables);
    word.pattern = Expand(word.pattern, variables);
  }
}

const Word& StepWords::Next(std::string_view what) {
  if (AtEnd()) {
    Fail("the line ends where " + std::string(what) + " is due");
  }
  return words_[at_++];
}

std::string StepWords::Take(std::string_view what) {
  return Next(what).text;
}

bool StepWords::TakeKeyword(std::string_view keyword) {
  if (AtEnd() || !forms::EqualsIgnoringCase(words_[at_].text, keyword)) {
    return false;
  }
  ++at_;
  return true;
}

std::int32_t StepWords::TakeNumber(std::string_view what) {
  const std::string text = Take(what);
  const auto number = ParseNumber(text);
  if (!number) {
    Fail(Quoted(text) + " is no number");
  }
  return *number;
}

bool StepWords::TakeTruth() {
  const std::string text = Take("on or off");
  const auto truth = ParseTruth(text);
  if (!truth) {
    Fail(Quoted(text) + " is neither on nor off");
  }
  return *truth;
}

std::string StepWords::TakeRest(std::string_view what) {
  std::string rest = Take(what);
  while (!AtEnd()) {
    rest += " " + words_[at_++].text;
  }
  return rest;
}

std::string StepWords::TakeUpToSign(std::string_view what) {
  const auto last = std::find_if(words_.rbegin(), words_.rend() - static_cast<std::ptrdiff_t>(at_), IsSign);
  const auto end = static_cast<std::size_t>(words_.rend() - last);  // behind the sign
  if (end < at_ + 2) {
    Fail("the line lacks " + std::string(what) + " with = or ~ behind it");
  }
  std::string text = Take(what);
  while (at_ < end - 1) {
    text += " " + words_[at_++].text;
  }
  return text;
}

Expectation StepWords::TakeValue(bool glob) {
  const Word& word = Next("a value");
  return glob ? Expectation::Glob(word.pattern, word.text) : Expectation::Equal(word.text);
}

bool StepWords::AtSign() const {
  return !AtEnd() && IsSign(words_[at_]);
}

Expectation StepWords::TakeExpectation() {
  if (!AtSign()) {
    Fail(AtEnd() ? "the line ends where = or ~ is due" : Quoted(words_[at_].text) + " stands where = or ~ is due");
  }
  const bool glob = words_[at_++].text == "~";
  return TakeValue(glob);
}

Expectation StepWords::TakeLooseExpectation() {
  return AtSign() ? TakeExpectation() : Expectation::Equal(Take("a text"));
}

std::vector<Expectation> StepWords::TakeExpectations() {
  const bool glob = AtSign() && words_[at_].text == "~";
  std::vector<Expectation> wanted = {TakeExpectation()};
  while (!AtEnd()) {
    wanted.push_back(TakeValue(glob));
  }
  return wanted;
}

std::pair<std::string, std::string> StepWords::TakeNamed(std::string_view what) {
  const std::string word = Take(what);
  const std::size_t sign = word.find('=');
  if (sign == std::string::npos || sign == 0) {
    Fail(Quoted(word) + " stands where " + std::string(what) + " is due, as name=value");
  }
  return {word.substr(0, sign), word.substr(sign + 1)};
}

std::vector<std::pair<std::string, Expectation>> StepWords::TakeAttributes(
    std::initializer_list<std::string_view> names) {
  std::vector<std::pair<std::string, Expectation>> attributes;
  while (!AtEnd()) {
    std::string name = Take("a name");
    const std::size_t sign = AtSign() ? std::string::npos : name.find('=');
    const std::string value = sign == std::string::npos ? "" : name.substr(sign + 1);
    name = forms::ToLower(name.substr(0, sign));
    if (std::ranges::find(names, name) == names.end()) {
      Fail(Quoted(name) + " is not known here");
    }
    attributes.emplace_back(name, sign == std::string::npos ? TakeExpectation() : Expectation::Equal(value));
  }
  return attributes;
}

bool StepWords::TakeNone() {
  if (!AtSign() || at_ + 2 != words_.size() || words_[at_ + 1].quoted || words_[at_ + 1].text != "none") {
    return false;
  }
  at_ += 2;
  return true;
}

void StepWords::End() const {
  if (!AtEnd()) {
    Fail("too many words, from " + Quoted(words_[at_].text) + " on");
  }
}

std::optional<std::int32_t> ParseNumber(std::string_view text) {
  std::int32_t number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

}  // namespace host
