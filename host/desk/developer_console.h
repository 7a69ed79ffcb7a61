#pragma once

#include <wx/frame.h>
#include <wx/listbox.h>

#include "desk/call_page.h"
#include "desk/desk.h"

namespace host {

// Calls any public method of the screens with arguments of one's own, and shows what comes back.
class DeveloperConsole : public wxFrame {
 public:
  DeveloperConsole(wxWindow* parent, Desk& desk);
  DeveloperConsole(const DeveloperConsole&) = delete;
  DeveloperConsole& operator=(const DeveloperConsole&) = delete;
  ~DeveloperConsole() override;

 private:
  wxListBox* MakeMethods(wxWindow* parent);
  wxListBox* MakeLists(wxWindow* parent);
  void ChooseMethod(const std::string& name);
  void ChooseList(int kind);

  Desk& desk_;
  CallPage* call_page_ = nullptr;
};

}  // namespace host
