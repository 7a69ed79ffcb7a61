#include "console/question.h"

#include "console/step_failure.h"

namespace host {

std::string ButtonsText(const forms::Message& message) {
  std::string text;
  for (const forms::Answer button : message.buttons) {
    text += (text.empty() ? "" : "/") + std::string(forms::Caption(button));
  }
  return text;
}

std::string IconText(forms::Icon icon) {
  switch (icon) {
    case forms::Icon::None:
      return "None";
    case forms::Icon::Information:
      return "Information";
    case forms::Icon::Question:
      return "Question";
    case forms::Icon::Exclamation:
      return "Exclamation";
    case forms::Icon::Critical:
      return "Critical";
  }
  return {};
}

std::string Describe(const Question& question) {
  return "the " + question.name + (question.title.empty() ? "" : " " + Quoted(question.title)) +
         (question.text.empty() ? "" : ": " + Quoted(question.text)) +
         (question.message == nullptr ? "" : " [" + ButtonsText(*question.message) + "]");
}

}  // namespace host
