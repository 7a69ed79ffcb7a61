#pragma once

#include <string_view>

#include "console/interpreter.h"
#include "console/step_words.h"
#include "forms/control.h"

// What the steps that act share.
namespace host {

// The next word's control. Fails unless a person could act on it.
forms::Control& TakeUsable(Interpreter& interpreter, StepWords& words);

// As above, of one kind; `what` it is for the failure text.
template <typename Kind>
Kind& TakeUsable(Interpreter& interpreter, StepWords& words, std::string_view what);

// Where the keys go that a person presses for the next word's control: there, or, when a rule passed the focus on
// from it as the step before acted on it (to a list that has dropped down), where the focus is.
forms::Control& TakeKeyTarget(Interpreter& interpreter, StepWords& words);

// Moves the focus there. False when a rule that asked something kept it where it was; one that kept it silently
// fails the step. A rule that passed the focus on, to a list that has dropped down, does not hinder.
bool Focus(Interpreter& interpreter, forms::Control& control);

[[noreturn]] void FailKind(const forms::Control& control, std::string_view what);

template <typename Kind>
Kind& TakeUsable(Interpreter& interpreter, StepWords& words, std::string_view what) {
  forms::Control& control = TakeUsable(interpreter, words);
  Kind* kind = dynamic_cast<Kind*>(&control);
  if (kind == nullptr) {
    FailKind(control, what);
  }
  return *kind;
}

}  // namespace host
