#pragma once

#include <wx/frame.h>

#include "desk/desk.h"
#include "home/frmHome.h"
#include "views/form_window.h"

namespace host {

// The home of a desk, which lives longer than the window that shows it.
struct HomeOfDesk {
  explicit HomeOfDesk(Desk& desk);

  frmHome home;
};

// The desk's main window: the home in front of its menus.
class MainFrame : private HomeOfDesk, public wxFrame, public views::FormWindow {
 public:
  // `switch_user` lets somebody else log in.
  MainFrame(Desk& desk, const std::function<void()>& switch_user);

  using wxFrame::CallAfter;

  frmHome& Home() { return home; }
  // Leaves the desk to another window: nothing more is done here.
  void Retire();

 private:
  void MakeMenus(const std::function<void()>& switch_user);
  wxMenuItem* AddItem(wxMenu& menu, const wxString& text, std::function<void()> act);
  void ShowConsole();
  void ShowKeys();
  void ShowAbout();

  Desk& desk_;
  std::vector<wxAcceleratorEntry> keys_;
  wxSize screen_;
};

}  // namespace host
