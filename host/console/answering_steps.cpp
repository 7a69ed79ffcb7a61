#include <algorithm>
#include <array>

#include "console/step_failure.h"
#include "console/steps.h"
#include "forms/text.h"

namespace host {
namespace {

Question& OpenMessageBox(Interpreter& interpreter) {
  Question& question = interpreter.Open();
  if (question.message == nullptr) {
    Fail("no message box is open, but " + Describe(question));
  }
  return question;
}

Question& OpenInputBox(Interpreter& interpreter) {
  Question& question = interpreter.Open();
  if (!question.takes_input) {
    Fail("no input box is open, but " + Describe(question));
  }
  return question;
}

Question& OpenPicker(Interpreter& interpreter) {
  Question& question = interpreter.Open();
  if (!question.choose) {
    Fail("no picker is open, but " + Describe(question));
  }
  return question;
}

// "vbYesNo", "OKOnly" and "Yes/No" as they are squeezed here.
std::string WithoutPrefix(std::string_view wanted) {
  std::string squeezed = Squeezed(wanted);
  if (squeezed.starts_with("vb")) {
    squeezed.erase(0, 2);
  }
  return squeezed == "okonly" ? "ok" : squeezed;
}

void CheckAttribute(const Question& question, const std::string& name, const Expectation& wanted) {
  const forms::Message& message = *question.message;
  if (name == "title") {
    wanted.Check(message.title);
    return;
  }
  const std::string was = name == "icon"      ? IconText(message.icon)
                          : name == "default" ? std::string(forms::Caption(message.Default()))
                                              : ButtonsText(message);
  if (!wanted.Matches(was) && WithoutPrefix(wanted.Text()) != Squeezed(was)) {
    Differ(name + " " + wanted.Describe(), Quoted(was));
  }
}

// A message box with OK alone that a line has read needs no line of its own to go away.
void Ask(Interpreter& interpreter, StepWords& words) {
  Question& question = OpenMessageBox(interpreter);
  words.TakeLooseExpectation().Check(question.text);
  for (const auto& [name, wanted] : words.TakeAttributes({"title", "icon", "buttons", "default"})) {
    CheckAttribute(question, name, wanted);
  }
  if (question.message->buttons == forms::kOkOnly && !interpreter.AnswerFollows()) {
    question.answer = forms::Answer::OK;
    question.closed = true;
  }
}

void Answer(Interpreter& interpreter, StepWords& words) {
  Question& question = OpenMessageBox(interpreter);
  const std::string wanted = words.TakeRest("a button");
  const auto& buttons = question.message->buttons;
  const auto found = std::ranges::find_if(
      buttons, [&](forms::Answer button) { return Squeezed(forms::Caption(button)) == Squeezed(wanted); });
  if (found == buttons.end()) {
    Fail(Describe(question) + " has no button " + wanted);
  }
  question.answer = *found;
  question.closed = true;
}

void Prompt(Interpreter& interpreter, StepWords& words) {
  const Question& question = OpenInputBox(interpreter);
  words.TakeLooseExpectation().Check(question.text);
  for (const auto& [name, wanted] : words.TakeAttributes({"title"})) {
    wanted.Check(question.title);
  }
}

void Input(Interpreter& interpreter, StepWords& words) {
  Question& question = OpenInputBox(interpreter);
  question.input = words.Take("a text");
  words.End();
  question.closed = true;
}

void CancelInput(Interpreter& interpreter, StepWords& words) {
  words.End();
  OpenInputBox(interpreter).closed = true;
}

void Chosen(Interpreter& interpreter, StepWords& words) {
  Question& question = OpenPicker(interpreter);
  const std::string value = words.Take("a value");
  words.End();
  if (!question.choose(value)) {
    Fail(Describe(question) + " does not offer " + Quoted(value));
  }
  question.closed = true;
}

void ChosenNone(Interpreter& interpreter, StepWords& words) {
  words.End();
  OpenPicker(interpreter).closed = true;
}

constexpr std::array kSteps = {
    Step{"ask", StepKind::Answer, "= TEXT [title|icon|buttons|default = VALUE]...", "the message box that is open",
         Ask},
    Step{"answer", StepKind::Answer, "BUTTON", "presses its button", Answer},
    Step{"prompt", StepKind::Answer, "= TEXT", "the input box that is open", Prompt},
    Step{"input", StepKind::Answer, "TEXT", "fills it in", Input},
    Step{"input-cancel", StepKind::Answer, "", "cancels it", CancelInput},
    Step{"chosen", StepKind::Answer, "VALUE", "a path, a colour (#RRGGBB) or a date (YYYY-MM-DD)", Chosen},
    Step{"chosen-none", StepKind::Answer, "", "cancels the picker", ChosenNone},
};

}  // namespace

std::span<const Step> AnsweringSteps() {
  return kSteps;
}

}  // namespace host
