#include "forms/check_box.h"

#include "forms/form.h"

namespace forms {

bool CheckBox::DoCheck(CheckState state) {
  if (state == CheckState::Mixed && !ThreeState) {
    return false;
  }
  if (!Usable() || (Owner() != nullptr && !Owner()->DoFocus(*this))) {
    return true;
  }
  if (!(Value == state)) {
    Value = state;
    Fire(Click);
  }
  return true;
}

void CheckBox::Changed(Aspect aspect) {
  DataChanged = DataChanged || aspect == Aspect::Value;
  Control::Changed(aspect);
}

void OptionButton::DoChoose() {
  if (!Usable() || (Owner() != nullptr && !Owner()->DoFocus(*this)) || Value) {
    return;
  }
  if (group_ != nullptr) {
    group_->Choose(*this);
  } else {
    Value = true;
  }
  Fire(Click);
}

OptionGroup::OptionGroup(std::initializer_list<OptionButton*> buttons) : buttons_(buttons) {
  for (OptionButton* button : buttons_) {
    button->group_ = this;
  }
}

void OptionGroup::Choose(OptionButton& button) {
  for (OptionButton* other : buttons_) {
    other->Value = other == &button;
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
