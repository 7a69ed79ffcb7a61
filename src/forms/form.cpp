#include "forms/form.h"

#include <algorithm>

#include "forms/button.h"
#include "forms/text.h"

namespace forms {

void Form::Add(const std::string& name, Control& control) {
  control.name_ = name;
  control.form_ = this;
  controls_.push_back(&control);
  control.RegisterParts(*this);
}

Control* Form::Find(std::string_view name) const {
  const auto found = std::ranges::find_if(
      controls_, [&](const Control* control) { return EqualsIgnoringCase(control->Name(), name); });
  return found == controls_.end() ? nullptr : *found;
}

void Form::Load() {
  if (!loaded_) {
    loaded_ = true;
    OnLoad();
  }
}

void Form::Close() {
  if (closed_) {
    return;
  }
  closed_ = true;
  if (observer_ != nullptr) {
    observer_->FormClosed();
  }
}

void Form::SetFocus(Control& control) {
  if (active_ == &control && !leaving_) {
    return;
  }
  leaving_ = false;
  Rest(control);
}

bool Form::DoClose() {
  if (!closed_ && QueryClose()) {
    Close();
  }
  return closed_;
}

bool Form::DoFocus(Control& control) {
  if (active_ == &control) {
    return true;
  }
  if (!control.Usable() || !control.TakesFocus()) {
    return false;
  }
  if ((control.CausesValidation && !LeaveActive()) || closed_ || !control.Usable()) {
    return active_ == &control;
  }
  Rest(control);
  return active_ == &control;
}

bool Form::DoLeave() {
  const bool left = LeaveActive();
  if (left) {
    OnFocus(nullptr);
  }
  return left;
}

// While the left control's rule runs, `leaving_` stands; a rule that sets the focus takes it down.
bool Form::LeaveActive() {
  if (active_ == nullptr) {
    return true;
  }
  Control* const left = active_;
  leaving_ = true;
  Control::Fire(left->Leave);
  const bool moved_by_rule = !leaving_;
  leaving_ = false;
  if (!moved_by_rule) {
    active_ = nullptr;
  }
  return !moved_by_rule;
}

bool Form::DoKey(Key key) {
  if (OnKey(key)) {
    return true;
  }
  Button* pressed = nullptr;
  if (key == Key::Esc) {
    pressed = cancel_button_;
  } else if (key == Key::Enter && (active_ == nullptr || !active_->TakesEnter())) {
    pressed = default_button_;
  }
  if (pressed != nullptr) {
    pressed->DoClick();
  }
  return pressed != nullptr;
}

void Form::Rest(Control& control) {
  active_ = &control;
  Changed(Aspect::Focus);
  OnFocus(&control);
  Control::Fire(control.Enter);
}

void Form::Changed(Aspect aspect) {
  if (observer_ != nullptr) {
    observer_->FormChanged(aspect);
  }
}

}  // namespace forms
