#include "forms/form.h"

#include <algorithm>

#include "forms/dialog_buttons.h"
#include "forms/label.h"
#include "forms/text.h"

namespace forms {

void Form::Add(const std::string& name, Control& control) {
  control.name_ = name;
  control.form_ = this;
  controls_.push_back(&control);
  order_.push_back(&control);
  if (auto* user_control = dynamic_cast<UserControl*>(&control)) {
    user_controls_.push_back(user_control);
  }
  control.RegisterParts(*this);
}

void Form::Reads(const std::vector<Control*>& first) {
  std::vector<Control*> order;
  const auto take = [&](Control& control) {
    const auto found = std::ranges::find(order_, &control);
    if (found != order_.end()) {
      order_.erase(found);
      order.push_back(&control);
    }
  };
  const auto take_headed = [&](Control& control) {
    if (control.Heading != nullptr) {
      take(*control.Heading);
    }
    take(control);
  };
  for (Control* control : first) {
    take_headed(*control);
    for (Control* other : std::vector(order_)) {
      if (other->LiesOn(*control)) {
        take_headed(*other);
      }
    }
  }
  order.insert(order.end(), order_.begin(), order_.end());
  order_ = std::move(order);
}

// A dropped panel is no part of the page: the way on from there is that from its field, and the way back leads to it.
Control* Form::NextStop(const Control* from, bool backward) const {
  const DropPanel* const dropped = from == nullptr ? nullptr : DropPanelUnder(*from);
  if (dropped != nullptr && dropped->Below != nullptr) {
    from = dropped->Below;
    if (backward) {
      return *std::ranges::find(order_, from);
    }
  }
  const std::size_t count = order_.size();
  const auto found = std::ranges::find(order_, from);
  std::size_t at = found != order_.end() ? static_cast<std::size_t>(found - order_.begin()) : backward ? 0 : count - 1;
  for (std::size_t step = 0; step < count; ++step) {
    at = (at + (backward ? count - 1 : 1)) % count;
    if (order_[at] != from && order_[at]->StopsTab() && DropPanelUnder(*order_[at]) == nullptr) {
      return order_[at];
    }
  }
  return nullptr;
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
    for (UserControl* part : user_controls_) {
      if (!closed_) {
        Run([part] { part->OnLoad(); });
      }
    }
    if (Control* first = NextField(nullptr); first != nullptr && active_ == nullptr && !closed_) {
      DoFocus(*first);
    }
  }
}

void Form::Close() {
  if (closed_) {
    return;
  }
  closed_ = true;
  OnClose();
  if (observer_ != nullptr) {
    observer_->FormClosed();
  }
}

void Form::SetFocus(Control& control) {
  if (active_ == &control && !leaving_) {
    return;
  }
  leaving_ = false;
  control.Reveal();
  Rest(control);
}

Control* Form::NextField(const Control* from) const {
  Control* const first = NextStop(from);
  Control* stop = first;
  while (stop != nullptr && dynamic_cast<const Button*>(stop) != nullptr &&
         dynamic_cast<const DialogButtons*>(stop->Container) == nullptr) {
    stop = NextStop(stop);
    if (stop == first) {
      return nullptr;
    }
  }
  return stop;
}

bool Form::DoClose() {
  const auto agrees = [](UserControl* part) { return part->QueryClose(); };
  bool closes = false;
  if (!closed_) {
    Run([&] { closes = std::ranges::all_of(user_controls_, agrees) && QueryClose(); });
  }
  if (closes) {
    Close();
  }
  return closed_;
}

bool Form::DoFocus(Control& control) {
  came_to_ = active_ == &control ? active_ : nullptr;
  if (came_to_ != nullptr) {
    return true;
  }
  if (!control.Usable() || !control.TakesFocus()) {
    return false;
  }
  if ((control.CausesValidation && !LeaveActive()) || closed_ || !control.Usable()) {
    return active_ == &control;
  }
  came_to_ = &control;
  Rest(control);
  return active_ == &control;
}

bool Form::DoLeave() {
  const bool left = LeaveActive();
  if (left) {
    TellFocus(nullptr);
  }
  return left;
}

bool Form::Settle() {
  Control* const at = active_;
  if (!DoLeave()) {
    return false;
  }
  const DropPanel* const gone = at == nullptr ? nullptr : DropPanelUnder(*at);
  active_ = gone == nullptr || gone->Below == nullptr ? at : *std::ranges::find(order_, gone->Below.get());
  Changed(Aspect::Focus);
  return true;
}

bool Form::DoIdle() {
  bool more = OnIdle();
  for (UserControl* part : user_controls_) {
    more = part->OnIdle() || more;
  }
  return more;
}

// While the left control's rule runs, `leaving_` stands; a rule that sets the focus takes it down.
bool Form::LeaveActive() {
  if (active_ == nullptr) {
    return true;
  }
  Control* const left = active_;
  leaving_ = true;
  left->Fire(left->Leave);
  const bool moved_by_rule = !leaving_;
  leaving_ = false;
  if (!moved_by_rule) {
    active_ = nullptr;
  }
  return !moved_by_rule;
}

bool Form::DoKey(Key key) {
  bool used = true;  // by a rule that failed, too
  Run([&] { used = OnKey(key); });
  if (used) {
    return true;
  }
  Button* pressed = nullptr;
  if (key == Key::Esc) {
    pressed = cancel_button_;
  } else if (key == Key::CtrlEnter || (key == Key::Enter && (active_ == nullptr || !active_->TakesEnter()))) {
    pressed = default_button_;
  }
  if (pressed != nullptr) {
    Control* const at = active_;
    pressed->DoClick();
    // A key that left the screen open leaves the person where he was.
    if (!closed_ && at != nullptr && active_ == pressed && at->Usable()) {
      SetFocus(*at);
    }
  }
  return pressed != nullptr;
}

void Form::Rest(Control& control) {
  active_ = &control;
  Changed(Aspect::Focus);
  TellFocus(&control);
  control.Fire(control.Enter);
}

void Form::TellFocus(Control* control) {
  Run([&] { OnFocus(control); });
  for (UserControl* part : user_controls_) {
    Run([&] { part->OnFocus(control); });
  }
}

void Form::Changed(Aspect aspect) {
  if (observer_ != nullptr) {
    observer_->FormChanged(aspect);
  }
}

}  // namespace forms
