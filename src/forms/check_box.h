#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "forms/control.h"

namespace forms {

enum class CheckState { Off, On, Mixed };

class CheckBox : public Control {
 public:
  Property<std::string> Caption{*this};
  Property<CheckState> Value{*this, CheckState::Off, Aspect::Value};
  // A person may choose `Mixed` too.
  Property<bool> ThreeState{*this, false};

  bool DataChanged = false;
  // A person changed the state.
  std::function<void()> Click;

  bool TakesEnter() const override { return true; }
  // False when the box has no such state for a person.
  bool DoCheck(CheckState state);
  void Changed(Aspect aspect) override;
};

// One of several choices of which one at most is on.
class OptionButton : public Control {
 public:
  Property<std::string> Caption{*this};
  Property<bool> Value{*this, false, Aspect::Value};

  std::function<void()> Click;

  bool TakesEnter() const override { return true; }
  void DoChoose();
  void Changed(Aspect aspect) override;

 private:
  friend class OptionGroup;
  class OptionGroup* group_ = nullptr;
};

// Ties option buttons together: the one that is turned on turns the others off.
class OptionGroup {
 public:
  OptionGroup(std::initializer_list<OptionButton*> buttons);
  OptionGroup(const OptionGroup&) = delete;
  OptionGroup& operator=(const OptionGroup&) = delete;
  ~OptionGroup() = default;

  // The position of the button that is on; -1 for none.
  int Chosen() const;

 private:
  friend class OptionButton;
  void TurnOthersOff(const OptionButton& button);

  std::vector<OptionButton*> buttons_;
};

}  // namespace forms
