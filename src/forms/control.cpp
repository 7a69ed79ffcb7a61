#include "forms/control.h"

#include "forms/form.h"

namespace forms {

bool Control::Shown() const {
  return Visible && (Container == nullptr || Container->Shown());
}

bool Control::Usable() const {
  return Visible && Enabled && (Container == nullptr || Container->Usable());
}

bool Control::LiesOn(const Control& panel) const {
  return Container != nullptr && (Container == &panel || Container->LiesOn(panel));
}

void Control::SetFocus() {
  if (form_ != nullptr) {
    form_->SetFocus(*this);
  }
}

bool Control::HasFocus() const {
  return form_ != nullptr && form_->ActiveControl() == this;
}

bool Control::DoFocus() {
  return Usable() && (!TakesFocus() || form_ == nullptr || form_->DoFocus(*this));
}

bool Control::DoKey(Key key) {
  if (KeyDown && KeyDown(key)) {
    return true;
  }
  return form_ != nullptr && form_->DoKey(key);
}

void Control::Changed(Aspect aspect) {
  if (observer_ != nullptr) {
    observer_->ControlChanged(*this, aspect);
  }
}

void Control::Fire(const std::function<void()>& slot) {
  if (slot) {
    slot();
  }
}

void Control::RegisterParts(Form& /*form*/) {}

}  // namespace forms
