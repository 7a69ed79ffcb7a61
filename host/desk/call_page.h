#pragma once

#include <wx/button.h>
#include <wx/listctrl.h>
#include <wx/panel.h>
#include <wx/scrolwin.h>
#include <wx/stattext.h>

#include <functional>
#include <string>
#include <vector>

#include "entry/dispatch.h"

namespace host {

// One public method: its arguments and its class's properties to fill in, the button that calls it, and what came
// back: events while it runs, then its values, or what it refused.
class CallPage : public wxPanel {
 public:
  CallPage(wxWindow* parent, std::function<void(const std::string& outcome)> on_called);

  // `preset` holds property values that belong to the choice itself, such as a list's kind.
  void Choose(const wxString& title, const entry::Dispatch& members, const std::string& method,
              const entry::Arguments& preset);
  void Call();
  void ShowEvent(const std::string& event, const std::string& arguments);

 private:
  struct Field {
    std::string name;
    std::function<std::string()> get;
    std::function<void(const std::string&)> set;
  };

  Field MakeField(wxSizer* rows, const std::string& name, const std::string& value);
  void Invoke();
  void ShowOutcome(const entry::Arguments& arguments, const std::string& returned);
  // Adds to the outcome, and tells it.
  void Add(const std::string& name, const std::string& value);

  std::function<void(const std::string&)> on_called_;
  wxStaticText* title_;
  wxScrolledWindow* fields_;
  wxButton* call_;
  wxListCtrl* outcome_;
  std::string told_;  // the outcome, in words
  entry::Dispatch members_;
  const entry::Method* method_ = nullptr;
  entry::Arguments preset_;
  std::vector<Field> arguments_;
  std::vector<Field> properties_;
};

}  // namespace host
