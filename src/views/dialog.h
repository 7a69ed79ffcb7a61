#pragma once

#include <wx/dialog.h>
#include <wx/eventfilter.h>

namespace views {

#ifdef __WXMSW__

// A dialog that is painted whole when its size changes, and whose keys come when the system's hook is done with them:
// the toolkit raises wxEVT_CHAR_HOOK inside that hook, where a window that a key opens may be given the same key again.
class Dialog : public wxDialog, private wxEventFilter {
 public:
  Dialog(wxWindow* parent, const wxString& title, long style = wxDEFAULT_DIALOG_STYLE);
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;
  ~Dialog() override;

  bool MSWTranslateMessage(WXMSG* message) override;

 private:
  int FilterEvent(wxEvent& event) override;

  bool outside_hook_ = false;
};

#else

class Dialog : public wxDialog {
 public:
  Dialog(wxWindow* parent, const wxString& title, long style = wxDEFAULT_DIALOG_STYLE)
      : wxDialog(parent, wxID_ANY, title, wxDefaultPosition, wxDefaultSize, style) {}
};

#endif

}  // namespace views
