#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "console/expectation.h"
#include "console/line.h"

namespace host {

using Variables = std::map<std::string, std::string, std::less<>>;
// The bytes that a variable holds at most, and a word with its variables put in; and how many variables there are.
inline constexpr std::size_t kLongestText = 1'000'000;
inline constexpr std::size_t kMostVariables = 1000;

// The words behind a step's name, taken one after the other, with `${NAME}` replaced. What is missing or too much
// fails the step.
class StepWords {
 public:
  // Fails when a variable is not known. The step's name is the first word taken.
  StepWords(const Line& line, const Variables& variables);

  bool AtEnd() const { return at_ == words_.size(); }
  // `what` is named when there is none.
  std::string Take(std::string_view what);
  // An unquoted word; false when another one comes.
  bool TakeKeyword(std::string_view keyword);
  std::int32_t TakeNumber(std::string_view what);
  // "on" or "off", and what else `ParseTruth` reads.
  bool TakeTruth();
  // The words that are left, with a blank between them.
  std::string TakeRest(std::string_view what);
  // Words up to the last sign ("=" or "~"), with a blank between them.
  std::string TakeUpToSign(std::string_view what);

  bool AtSign() const;
  Expectation TakeExpectation();
  // An expectation whose "=" may be left out.
  Expectation TakeLooseExpectation();
  // `= VALUE...`, at least one; each with the sign that stood before the first.
  std::vector<Expectation> TakeExpectations();
  // NAME=VALUE
  std::pair<std::string, std::string> TakeNamed(std::string_view what);
  // NAME = VALUE, NAME ~ PATTERN or NAME=VALUE up to the end of the line; a name that is none of `names` fails.
  std::vector<std::pair<std::string, Expectation>> TakeAttributes(std::initializer_list<std::string_view> names);

  // `= none`; false, and nothing is taken, when something else comes.
  bool TakeNone();
  // Nothing more may come.
  void End() const;

 private:
  const Word& Next(std::string_view what);
  // The next word as the sign before it reads it.
  Expectation TakeValue(bool glob);

  std::vector<Word> words_;
  std::size_t at_ = 0;
};

// A whole number; nothing when the text is none.
std::optional<std::int32_t> ParseNumber(std::string_view text);

}  // namespace host
