#pragma once

#include <functional>
#include <optional>
#include <string>

#include "forms/user.h"

namespace host {

// Something a screen asks of the person, open until a step closes it.
struct Question {
  std::string name;  // "message box", "input box", "date picker"
  std::string title;
  std::string text;

  // Of a message box.
  const forms::Message* message = nullptr;
  // Of an input box.
  bool takes_input = false;
  // Of a picker: takes the value; false when it is none that a person could choose there.
  std::function<bool(const std::string& value)> choose = {};

  bool closed = false;
  forms::Answer answer = forms::Answer::Cancel;
  std::optional<std::string> input = {};  // nothing when cancelled
};

// "Yes/No"
std::string ButtonsText(const forms::Message& message);
// "None", "Information", ...
std::string IconText(forms::Icon icon);
// One line: what is open, its texts and its buttons.
std::string Describe(const Question& question);

}  // namespace host
