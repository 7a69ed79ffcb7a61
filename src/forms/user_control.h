#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "forms/panels.h"

namespace forms {

// A panel with rules of its own, which as many screens have as need it. Its own controls are known under its name
// ("ucSelCoverage1.TDBG"); controls of the screen that only follow its rules keep theirs.
class UserControl : public Panel {
 protected:
  friend class Form;

  // A control of its own, registered with the screen when this one is; it lies on this one unless it lies elsewhere.
  void Add(const std::string& name, Control& control);
  template <typename T, std::size_t N>
  void Add(const std::string& name, std::array<T, N>& controls) {
    for (std::size_t i = 0; i < N; ++i) {
      Add(name + "(" + std::to_string(i) + ")", controls[i]);
    }
  }
  // A control of the screen, from now on under this one's rules: it lies on this one.
  void Adopt(Control& control);

  // What the names of its own controls begin with.
  virtual std::string Scope() const { return Name() + "."; }

  // Reads what it shows; runs once, after the screen's own `OnLoad`.
  virtual void OnLoad() {}
  // The focus now rests on the control, here or elsewhere on the screen; nullptr when it left for nowhere.
  virtual void OnFocus(Control* /*control*/) {}
  // Whether the screen may close, as far as this part of it goes.
  virtual bool QueryClose() { return true; }
  // Some of the work that waits until the person pauses; false when there is none left.
  virtual bool OnIdle() { return false; }

  void RegisterParts(Form& form) override;

 private:
  std::vector<std::pair<std::string, Control*>> parts_;
};

// A user control outside the page: it drops below a field, over what is there, and goes when the focus rests neither
// on the field nor on it.
class DropPanel : public UserControl {
 public:
  DropPanel() { Visible = false; }

  // The field that it drops below; nullptr before it has dropped for the first time.
  Property<const Control*> Below{*this, nullptr};

  void Drop(const Control& below);

 protected:
  void OnFocus(Control* control) override;
  // It went because the focus has gone elsewhere.
  virtual void OnFocusLeft() {}
};

// The dropped panel that a control lies on; nullptr for one on the page.
const DropPanel* DropPanelUnder(const Control& control);

}  // namespace forms
