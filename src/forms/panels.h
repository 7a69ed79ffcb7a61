#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/control.h"

namespace forms {

// A part of a screen that shows and hides as one; the controls on it name it as their `Container`. On a strip of tabs
// it is a page, and its caption the tab's.
class Panel : public Control {
 public:
  Property<std::string> Caption{*this};

  bool TakesFocus() const override { return false; }
  // What lies on it changes with it.
  void Changed(Aspect aspect) override;

 protected:
  std::string OwnCaption() const override { return Caption.get(); }
};

// Tabs of which one is in front, each with a page or, for a strip that only switches, without.
class TabStrip : public Control {
 public:
  // The captions; those of the pages, where there are any.
  Property<std::vector<std::string>> Tabs{*this, {}, Aspect::Items};
  // The place in `Tabs` of the one in front; -1 when no page is visible.
  Property<int> CurrTab{*this, 0, Aspect::Value};

  // A person chose another tab, or a rule's focus brought its page forward.
  std::function<void()> Switch;

  // Puts a page behind those that are there. While it is not `Visible` it has no tab.
  void AddPage(Panel& page);
  const std::vector<Panel*>& Pages() const { return pages_; }
  bool HasTab(int index) const;
  // The next tab from the one in front, going round; `step` is 1 or -1.
  int NextTab(int step) const;

  // False when there is no such tab.
  bool DoTab(int index);

 protected:
  bool Shows(const Control& part) const override;
  void BringForward(const Control& part) override;

 private:
  friend class Panel;
  void PagesChanged();
  int IndexOf(const Control& page) const;

  std::vector<Panel*> pages_;
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
