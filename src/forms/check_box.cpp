#include "forms/check_box.h"

#include "forms/text.h"

namespace forms {

bool CheckBox::DoCheck(CheckState state) {
  if (state == CheckState::Mixed && !ThreeState) {
    return false;
  }
  if (DoFocus() && !(Value == state)) {
    Value = state;
    Fire(Click);
  }
  return true;
}

std::string CheckBox::FieldText() const {
  return Value == CheckState::Mixed ? std::string() : Value == CheckState::On ? "1" : "0";
}

void CheckBox::SetFieldText(std::string text) {
  if (text.empty() && ThreeState) {
    Value = CheckState::Mixed;
  } else {
    Value = IsOn(text) ? CheckState::On : CheckState::Off;
  }
}

bool OptionButton::StopsTab() const {
  return Control::StopsTab() && (Value || group_ == nullptr || group_->Chosen() < 0);
}

void OptionButton::DoChoose() {
  if (DoFocus() && !Value) {
    Value = true;
    Fire(Click);
  }
}

void OptionButton::Changed(Aspect aspect) {
  if (aspect == Aspect::Value && Value && group_ != nullptr) {
    group_->TurnOthersOff(*this);
  }
  Control::Changed(aspect);
}

OptionGroup::OptionGroup(std::initializer_list<OptionButton*> buttons) : buttons_(buttons) {
  for (OptionButton* button : buttons_) {
    button->group_ = this;
  }
}

void OptionGroup::TurnOthersOff(const OptionButton& button) {
  for (OptionButton* other : buttons_) {
    if (other != &button) {
      other->Value = false;
    }
  }
}

int OptionGroup::Chosen() const {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    if (buttons_[i]->Value) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

}  // namespace forms
