#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "forms/field.h"

namespace forms {

enum class CheckState { Off, On, Mixed };

class CheckBox : public Field {
 public:
  Property<std::string> Caption{*this};
  Property<CheckState> Value{*this, CheckState::Off, Aspect::Value};
  // A person may choose `Mixed` too.
  Property<bool> ThreeState{*this, false};

  // A person changed the state.
  std::function<void()> Click;

  bool TakesEnter() const override { return true; }
  // False when the box has no such state for a person.
  bool DoCheck(CheckState state);

  std::string FieldText() const override;
  // An empty text is mixed where the box has three states; what is not on is off.
  void SetFieldText(std::string text) override;

 protected:
  std::string OwnCaption() const override { return Caption.get(); }
};

// One of several choices of which one at most is on.
class OptionButton : public Control {
 public:
  Property<std::string> Caption{*this};
  Property<bool> Value{*this, false, Aspect::Value};

  std::function<void()> Click;

  bool TakesEnter() const override { return true; }
  // The Tab key stops at the chosen one of a group; the arrow keys go from one to the other.
  bool StopsTab() const override;
  void DoChoose();
  void Changed(Aspect aspect) override;

 protected:
  std::string OwnCaption() const override { return Caption.get(); }

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
