#pragma once

#include <functional>
#include <optional>
#include <string>

#include "forms/color.h"
#include "forms/property.h"

namespace forms {

class Control;
class Form;
class Label;

// The keys that a rule may take; every other key is a character.
enum class Key { Enter, Esc, Tab, F9, Delete, Insert, Up, Down, PageUp, PageDown, CtrlEnter, CtrlS, CtrlF, CtrlShiftF };

// The one watcher of a control: its widget.
class ControlObserver {
 public:
  virtual ~ControlObserver() = default;
  virtual void ControlChanged(Control& control, Aspect aspect) = 0;
};

// What a person sees and touches, without a window. Properties are set by the rules and show at once; the slots
// (`Enter`, `Leave`, `KeyDown`, those of the derived controls) are the rules' handlers; the `Do` members are what
// a person does, called by views, the console and tests alike.
class Control : public Observable {
 public:
  Property<bool> Visible{*this, true};
  Property<bool> Enabled{*this, true};
  Property<std::string> ToolTip{*this};
  Property<std::optional<Color>> ForeColor{*this};
  Property<std::optional<Color>> BackColor{*this};
  std::string Tag;

  // False for a button that may be reached while a field's rule would keep the focus: cancel, help.
  bool CausesValidation = true;
  // False for a control that the Tab key passes by, because a key in a field does the same.
  bool TabStop = true;

  // The panel that this control lies on: hidden or disabled with it, and asked for the keys that it does not use.
  Control* Container = nullptr;
  // The label that says what this control is for; its mnemonic leads here.
  Label* Heading = nullptr;
  // What the control is called where nobody sees it, when it has no heading and its own caption does not say it.
  std::string AccessibleName;

  std::function<void()> Enter;
  std::function<void()> Leave;
  // True when the rule used the key up.
  std::function<bool(Key)> KeyDown;

  // The name under which the form registered it: "Text1(3)", "DialogButtons1.OK".
  const std::string& Name() const { return name_; }
  Form* Owner() const { return form_; }
  // The letter that leads to it with Alt, lower case; 0 for none. A field is reached by its heading's.
  char Mnemonic() const;
  // The heading, the accessible name, the control's own caption or its tip, as it is read aloud; empty for none.
  virtual std::string SpokenName() const;

  // Visible and enabled, and so is every panel that it lies on; of the pages of a strip, the one in front.
  bool Shown() const;
  bool Usable() const;
  bool LiesOn(const Control& panel) const;
  // Every panel that it lies on brings it forward.
  void Reveal() const;

  // True when the focus may rest on it.
  virtual bool TakesFocus() const { return true; }
  // True when the Tab key stops there.
  virtual bool StopsTab() const { return TabStop && TakesFocus() && Usable(); }
  // True when Enter there goes on to the next field or acts on the control itself, and not on the form's default
  // button.
  virtual bool TakesEnter() const { return false; }

  void SetFocus();
  // By a rule: the focus goes on to the field behind this one.
  void FocusNext();
  bool HasFocus() const;

  // A person comes to act on it: true when it is usable and the focus, where it takes any, is now here.
  bool DoFocus();
  // True when a rule used the key up: here, on a panel that the control lies on, or on the form.
  bool DoKey(Key key);

  void Watch(ControlObserver* observer) { observer_ = observer; }
  void Changed(Aspect aspect) override;

 protected:
  friend class Form;

  // Runs what a rule does when there is something, as the form runs its rules.
  void Fire(const std::function<void()>& slot) const;

  // The control's own use for a key, pressed on it or on a control that lies on it.
  virtual bool OnKey(Key key) { return KeyDown && KeyDown(key); }
  // What stands on the control itself; "&" before the mnemonic.
  virtual std::string OwnCaption() const { return {}; }
  // Whether a control that lies directly on this one is seen there, and how it comes to be.
  virtual bool Shows(const Control& /*part*/) const { return true; }
  virtual void BringForward(const Control& /*part*/) {}

  // Registers the parts of a composed control ("DialogButtons1.OK") with the form.
  virtual void RegisterParts(Form& form);

 private:
  std::string name_;
  Form* form_ = nullptr;
  ControlObserver* observer_ = nullptr;
};

}  // namespace forms
