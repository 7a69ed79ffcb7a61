#pragma once

#include <functional>
#include <string>

#include "forms/control.h"

namespace forms {

// A push button. A view underlines the letter after '&' and gives it as the mnemonic.
class Button : public Control {
 public:
  Property<std::string> Caption{*this};
  // File name of the picture in the picture folder; empty for none.
  Property<std::string> Picture{*this};

  std::function<void()> Click;

  bool TakesEnter() const override { return true; }
  // Takes the focus first: a field that keeps the focus by its rule keeps the button from acting.
  void DoClick();

 protected:
  std::string OwnCaption() const override { return Caption.get(); }
};

// A picture that may be clicked.
class PictureBox : public Button {
 public:
  bool TakesFocus() const override { return false; }
};

// A menu command.
class MenuItem : public Button {
 public:
  bool TakesFocus() const override { return false; }
};

}  // namespace forms
