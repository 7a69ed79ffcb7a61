#include "console/acting.h"

#include "console/step_failure.h"

namespace host {
namespace {

// Of the control and its panels, the one that keeps a person from acting.
void RequireUsable(const forms::Control& control) {
  for (const forms::Control* part = &control; part != nullptr; part = part->Container) {
    const std::string which =
        part == &control ? control.Name() : control.Name() + " lies on " + part->Name() + ", which";
    if (!part->Visible) {
      Fail(which + " is hidden");
    }
    if (!part->Enabled) {
      Fail(which + " is disabled");
    }
  }
  if (!control.Usable()) {
    Fail(control.Name() + " lies on a page that is not in front");
  }
}

}  // namespace

forms::Control& TakeUsable(Interpreter& interpreter, StepWords& words) {
  forms::Control& control = interpreter.Find(words.Take("a control"));
  RequireUsable(control);
  interpreter.SetActedOn(control);
  return control;
}

forms::Control& TakeKeyTarget(Interpreter& interpreter, StepWords& words) {
  forms::Control& control = interpreter.Find(words.Take("a control"));
  forms::Control* active = interpreter.Top().ActiveControl();
  forms::Control& target = interpreter.ActedOn() == &control && active != nullptr ? *active : control;
  RequireUsable(target);
  interpreter.SetActedOn(control);
  return target;
}

bool Focus(Interpreter& interpreter, forms::Control& control) {
  forms::Form& form = interpreter.Top();
  const forms::Control* before = form.ActiveControl();
  const int questions = interpreter.QuestionCount();
  if (control.DoFocus()) {
    return true;
  }
  if (form.Closed()) {
    return false;
  }
  const forms::Control* after = form.ActiveControl();
  if (after != nullptr && (after != before || form.CameTo(control)) && control.Usable()) {
    return true;
  }
  if (interpreter.QuestionCount() == questions) {
    Fail(after == nullptr ? "the focus does not come to " + control.Name()
                          : "the focus stays in " + after->Name() + " and does not come to " + control.Name());
  }
  return false;
}

void FailKind(const forms::Control& control, std::string_view what) {
  Fail(control.Name() + " is no " + std::string(what));
}

}  // namespace host
