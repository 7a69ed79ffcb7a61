#pragma once

#include <wx/frame.h>
#include <wx/listbox.h>

#include "desk/call_page.h"
#include "desk/desk.h"

namespace host {

// The desk's main window: the patients, and every public method with its outcome.
class MainFrame : public wxFrame {
 public:
  explicit MainFrame(Desk& desk);

 private:
  void MakeCommands();
  wxListBox* MakeMethods(wxWindow* parent);
  wxListBox* MakeLists(wxWindow* parent);
  void ChooseMethod(const std::string& name);
  void ChooseList(int kind);

  void NewPatient(session::Opening::Mode mode);
  void FindPatient();
  void SwitchUser();
  void ShowWho();
  void Tell(const std::string& outcome);

  Desk& desk_;
  CallPage* call_page_ = nullptr;
};

}  // namespace host
