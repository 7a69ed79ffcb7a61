#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/control.h"

namespace forms {

// A part of a screen that shows and hides as one; the controls on it name it as their `Container`.
class Panel : public Control {
 public:
  Property<std::string> Caption{*this};

  bool TakesFocus() const override { return false; }
  // What lies on it changes with it.
  void Changed(Aspect aspect) override;

 protected:
  std::string OwnCaption() const override { return Caption; }
};

// Pages of which one is in front.
class TabStrip : public Control {
 public:
  Property<std::vector<std::string>> Tabs{*this, {}, Aspect::Items};
  Property<int> CurrTab{*this, 0, Aspect::Value};

  std::function<void()> Switch;

  // False when there is no such page.
  bool DoTab(int index) {
    if (index < 0 || index >= static_cast<int>(Tabs->size())) {
      return false;
    }
    if (DoFocus() && !(CurrTab == index)) {
      CurrTab = index;
      Fire(Switch);
    }
    return true;
  }
};

class Slider : public Control {
 public:
  Property<int> Min{*this, 0};
  Property<int> Max{*this, 10};
  Property<int> Value{*this, 0, Aspect::Value};

  std::function<void()> Change;

  // False when the value is out of range.
  bool DoSlide(int value) {
    if (value < Min || value > Max) {
      return false;
    }
    if (DoFocus() && !(Value == value)) {
      Value = value;
      Fire(Change);
    }
    return true;
  }
};

// Calls `Elapsed` once in every interval while it is enabled; a one-shot rule disables it there.
class Timer : public Control {
 public:
  Timer() { Enabled = false; }

  Property<int> Interval{*this, 1};  // milliseconds

  std::function<void()> Elapsed;

  bool TakesFocus() const override { return false; }
  void DoElapse() {
    if (Enabled) {
      Fire(Elapsed);
    }
  }
};

}  // namespace forms
