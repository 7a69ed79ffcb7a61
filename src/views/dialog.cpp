#include "views/dialog.h"

#ifdef __WXMSW__

#include <wx/msw/wrapwin.h>

namespace views {

Dialog::Dialog(wxWindow* parent, const wxString& title, long style)
    : wxDialog(parent, wxID_ANY, title, wxDefaultPosition, wxDefaultSize, style) {
  wxEvtHandler::AddFilter(this);
  // What moves as the window grows would leave parts of itself behind.
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    CallAfter([this] { Refresh(); });
  });
}

Dialog::~Dialog() {
  wxEvtHandler::RemoveFilter(this);
}

bool Dialog::MSWTranslateMessage(WXMSG* message) {
  wxWindow* focus = FindFocus();
  if ((message->message == WM_KEYDOWN || message->message == WM_SYSKEYDOWN) && focus != nullptr) {
    wxKeyEvent key = CreateKeyEvent(wxEVT_CHAR_HOOK, message->wParam, message->lParam);
    key.SetEventObject(focus);
    key.SetId(focus->GetId());
    outside_hook_ = true;
    const bool used = focus->HandleWindowEvent(key) && !key.IsNextEventAllowed();
    outside_hook_ = false;
    if (used) {
      return true;
    }
  }
  // A mnemonic is looked for in the whole window; the group that has the focus would take it, and know only its own.
  return wxDialog::MSWTranslateMessage(message) || (message->message == WM_SYSCHAR && MSWProcessMessage(message));
}

int Dialog::FilterEvent(wxEvent& event) {
  const bool in_hook = event.GetEventType() == wxEVT_CHAR_HOOK && !outside_hook_;
  return in_hook && wxGetTopLevelParent(dynamic_cast<wxWindow*>(event.GetEventObject())) == this ? Event_Ignore
                                                                                                 : Event_Skip;
}

}  // namespace views

#endif
