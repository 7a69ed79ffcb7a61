#pragma once

#include <array>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"
#include "forms/user_control.h"

namespace forms {

// The one watcher of a form: its window.
class FormObserver {
 public:
  virtual ~FormObserver() = default;
  virtual void FormChanged(Aspect aspect) = 0;
  virtual void FormClosed() = 0;
};

// A screen without a window: its controls, known by name, its rules, and how it closes.
//
// Life: constructed by its caller, inputs set as members, shown through `User::Show`, which calls `Load` and returns
// when the form is closed; the outcome is then read from its members.
class Form : public Observable {
 public:
  Property<std::string> Caption{*this};

  explicit Form(std::string name) : name_(std::move(name)) {}

  // The class's name: "patScreen_SM".
  const std::string& Name() const { return name_; }
  // Under which the place of its window is kept.
  virtual const std::string& PlaceKey() const { return name_; }
  // The place is kept in an option for each of its parts, under the key and "_S" (2 for a window that fills the
  // screen), and what `PlaceParts` says.
  virtual bool KeepsPlaceInParts() const { return false; }
  // Left, top, width and height.
  virtual std::array<std::string_view, 4> PlaceParts() const { return {"_L", "_T", "_W", "_H"}; }

  // Makes a control known. Controls are read in the order in which they are added, unless `Reads` says otherwise.
  void Add(const std::string& name, Control& control);
  template <typename T, std::size_t N>
  void Add(const std::string& name, std::array<T, N>& controls) {
    for (std::size_t i = 0; i < N; ++i) {
      Add(name + "(" + std::to_string(i) + ")", controls[i]);
    }
  }
  // Nullptr when no control has that name; case does not matter.
  Control* Find(std::string_view name) const;
  const std::vector<Control*>& Controls() const { return controls_; }
  // The controls as a person reads them: a panel before what lies on it, a heading before its control.
  const std::vector<Control*>& ReadingOrder() const { return order_; }
  // Where the Tab key goes from there, round the form; backward with Shift. Nullptr when there is no other stop.
  Control* NextStop(const Control* from, bool backward = false) const;
  // Where Enter goes on to from a field: the next field, or the dialog buttons behind the last.
  Control* NextField(const Control* from) const;
  // Pressed by Enter where the focus is on a control that has no use for it, by Ctrl+Enter anywhere, and by Esc.
  void SetDefaultButton(class Button* button) { default_button_ = button; }
  void SetCancelButton(class Button* button) { cancel_button_ = button; }

  // A public property by its text, for callers that know the form by name alone.
  struct NamedProperty {
    std::function<std::string()> get;
    std::function<void(const std::string&)> set;
  };
  std::map<std::string, NamedProperty, std::less<>> Properties;

  // The focus is then in the first field, unless a rule put it elsewhere.
  void Load();
  bool Loaded() const { return loaded_; }
  bool Closed() const { return closed_; }
  // Closes without asking.
  void Close();

  Control* ActiveControl() const { return active_; }
  // By a rule: the focus goes there, and `Leave` of the control before it does not run. A page behind others that it
  // lies on comes to the front.
  void SetFocus(Control& control);

  // The close box, or the cancel button's default: asks `QueryClose`. True when the form closed.
  bool DoClose();
  // Moves the focus as a person does: `Leave`, then `Enter`. False when a rule kept the focus elsewhere.
  bool DoFocus(Control& control);
  // Whether the last `DoFocus` brought it there; a rule may have passed it on since, to a panel that has dropped.
  bool CameTo(const Control& control) const { return came_to_ == &control; }
  // The focus leaves for nowhere, as when the person goes to another window. False when a rule kept it.
  bool DoLeave();
  // What was typed is taken as if the focus left, and the focus stays: before the form saves. False when a rule kept
  // the focus because it does not take what was typed.
  bool Settle();
  // Keys that no control used: F9 and the like for the form's own rules, Enter and Esc for its buttons.
  bool DoKey(Key key);
  // The person pauses: some of the work that waits for it is done. False when there is none left.
  bool DoIdle();

  // Every rule that answers a person runs in here. A form whose rules may fail ends the rule here, and tells him.
  virtual void Run(const std::function<void()>& rule) { rule(); }

  void Watch(FormObserver* observer) { observer_ = observer; }
  void Changed(Aspect aspect) override;

 protected:
  // Reads what the form shows; runs once, before the form is seen.
  virtual void OnLoad() {}
  // It has closed, whichever way; runs once.
  virtual void OnClose() {}
  // Whether the form may close: the place to ask about unsaved changes.
  virtual bool QueryClose() { return true; }
  virtual bool OnKey(Key /*key*/) { return false; }
  // The focus now rests on the control, by a person or a rule; nullptr when it left for nowhere.
  virtual void OnFocus(Control* /*control*/) {}
  virtual bool OnIdle() { return false; }

  // Puts these first in the reading order, each with what lies on it; the others follow as they were added.
  void Reads(const std::vector<Control*>& first);

 private:
  bool LeaveActive();
  void Rest(Control& control);
  void TellFocus(Control* control);

  std::string name_;
  std::vector<Control*> controls_;
  std::vector<Control*> order_;
  std::vector<UserControl*> user_controls_;
  class Button* default_button_ = nullptr;
  class Button* cancel_button_ = nullptr;
  Control* active_ = nullptr;
  const Control* came_to_ = nullptr;
  FormObserver* observer_ = nullptr;
  bool loaded_ = false;
  bool closed_ = false;
  bool leaving_ = false;
};

}  // namespace forms
