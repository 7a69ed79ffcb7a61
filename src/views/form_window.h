#pragma once

#include <wx/toplevel.h>
#include <wx/weakref.h>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "forms/form.h"
#include "forms/user.h"
#include "session/session.h"
#include "views/binding.h"
#include "views/pictures.h"

namespace views {

// What a window that shows a form has besides being one: title, focus, keys, idle work, and the place that it had when
// it was last closed. A view fills it with widgets; the Tab key follows the form's reading order.
class FormWindow : private forms::FormObserver {
 public:
  // `window` is the object that this is a part of. `places` keeps where windows stood, by user; nullptr when nobody is
  // logged in.
  FormWindow(wxTopLevelWindow& window, forms::Form& form, forms::User& user, const views::Pictures& pictures,
             session::Settings* places);
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;
  ~FormWindow() override;

  // The window that a widget is in.
  static FormWindow& Of(wxWindow& widget);

  wxTopLevelWindow& Window() const { return window_; }
  template <typename Work>
  void CallAfter(const Work& work) {
    window_.CallAfter(work);
  }
  forms::Form& Form() const { return form_; }
  forms::User& User() const { return user_; }
  const views::Pictures& Pictures() const { return pictures_; }

  // Makes a binding of type T, shows its control as it is, and keeps it.
  template <typename T, typename... Args>
  T& Attach(Args&&... args) {
    auto made = std::make_unique<T>(std::forward<Args>(args)...);
    T& binding = *made;
    bindings_.push_back(std::move(made));
    by_control_[&binding.Control()] = &binding;
    for (const auto aspect : {forms::Aspect::State, forms::Aspect::Items, forms::Aspect::Value}) {
      binding.ControlChanged(binding.Control(), aspect);
    }
    return binding;
  }
  // Makes what lies over the page, when all of the page is made.
  void OverPage(std::function<void()> make) { over_page_.push_back(std::move(make)); }
  void FinishLayout();
  // Keeps a watcher that has no widget.
  void Keep(std::unique_ptr<forms::ControlObserver> watcher) { watchers_.push_back(std::move(watcher)); }
  // Nullptr for a control that the view does not show.
  Binding* Find(const forms::Control& control) const;

  // Makes the form's focus that of the widgets; false when a rule kept it elsewhere. Called before the form is told
  // of a key or a click, so that `Leave` and `Enter` run first.
  bool SyncFocus();
  // What the control heads may be called otherwise now.
  void HeadingChanged(const forms::Control& heading) const;
  // Lays the window out again, after the rules that are running.
  void LayOutSoon();
  // While something modal stands before it, a window does no idle work and lets no time pass.
  // Afterwards the keyboard is where the form has its focus.
  void SetCovered(bool covered);
  bool Covered() const { return covered_; }

 protected:
  // Brings the window into the shape in which it is first seen: `wanted`, or as large as its contents ask for, and
  // where it stood last.
  void Prepare(wxSize wanted = {});
  void SaveScreenPosition();

 private:
  void FormChanged(forms::Aspect aspect) override;
  void FormClosed() override {}

  void OnKey(wxKeyEvent& event);
  bool UseKey(Binding* binding, forms::Key key);
  bool UseAltKey(int key);
  // Where the Tab key goes from there, or back with Shift; false when there is nowhere to go.
  bool GoOn(Binding* from, bool backward);
  // The widgets' focus goes to the control; false when there is none, or none that the view shows.
  bool GoTo(const forms::Control* control) const;
  void ShowFocus();
  void TakeFocusBack();
  Binding* Focused() const;
  void FitContents();
  void RestoreScreenPosition();
  // Left, top, width and height; nothing where none, or no whole place, is kept.
  std::optional<std::array<long, 4>> KeptPlace() const;
  void KeepPlace(const std::array<long, 4>& place);

  wxTopLevelWindow& window_;
  forms::Form& form_;
  forms::User& user_;
  const views::Pictures& pictures_;
  session::Settings* places_;
  std::vector<std::function<void()>> over_page_;
  std::vector<std::unique_ptr<Binding>> bindings_;
  std::vector<std::unique_ptr<forms::ControlObserver>> watchers_;
  std::map<const forms::Control*, Binding*> by_control_;
  bool covered_ = false;
  const forms::Control* active_;   // that the form told of last
  wxWeakRef<wxWindow> had_focus_;  // when it was covered
  bool layout_pending_ = false;
  bool focus_set_ = false;  // by the form, and not shown yet
};

}  // namespace views
