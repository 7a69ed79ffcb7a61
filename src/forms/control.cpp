#include "forms/control.h"

#include "forms/form.h"
#include "forms/label.h"
#include "forms/text.h"

namespace forms {

bool Control::Shown() const {
  return Visible && (Container == nullptr || (Container->Shows(*this) && Container->Shown()));
}

bool Control::Usable() const {
  return Visible && Enabled && (Container == nullptr || (Container->Shows(*this) && Container->Usable()));
}

bool Control::LiesOn(const Control& panel) const {
  return Container != nullptr && (Container == &panel || Container->LiesOn(panel));
}

void Control::Reveal() const {
  if (Container != nullptr) {
    Container->Reveal();
    Container->BringForward(*this);
  }
}

void Control::SetFocus() {
  if (form_ != nullptr) {
    form_->SetFocus(*this);
  }
}

void Control::FocusNext() {
  if (Control* next = form_ == nullptr ? nullptr : form_->NextField(this); next != nullptr) {
    next->SetFocus();
  }
}

bool Control::HasFocus() const {
  return form_ != nullptr && form_->ActiveControl() == this;
}

bool Control::DoFocus() {
  return Usable() && (!TakesFocus() || form_ == nullptr || form_->DoFocus(*this));
}

char Control::Mnemonic() const {
  return MnemonicOf(OwnCaption());
}

std::string Control::SpokenName() const {
  for (const std::string& caption :
       {Heading != nullptr ? Heading->Caption.get() : std::string(), AccessibleName, OwnCaption(), ToolTip.get()}) {
    std::string name = WithoutMnemonic(caption);
    name.erase(name.find_last_not_of(" :.") + 1);
    if (const std::string_view trimmed = Trim(name); !trimmed.empty()) {
      return std::string(trimmed);
    }
  }
  return {};
}

bool Control::DoKey(Key key) {
  for (Control* at = this; at != nullptr; at = at->Container) {
    bool used = true;  // by a rule that failed, too
    Fire([&] { used = at->OnKey(key); });
    if (used) {
      return true;
    }
  }
  return form_ != nullptr && form_->DoKey(key);
}

void Control::Changed(Aspect aspect) {
  if (observer_ != nullptr) {
    observer_->ControlChanged(*this, aspect);
  }
}

void Control::Fire(const std::function<void()>& slot) const {
  if (slot && form_ != nullptr) {
    form_->Run(slot);
  } else if (slot) {
    slot();
  }
}

void Control::RegisterParts(Form& /*form*/) {}

}  // namespace forms
