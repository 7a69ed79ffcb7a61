#include "desk/idle_lock.h"

#include <wx/evtloop.h>
#include <wx/menu.h>
#include <wx/stopwatch.h>
#include <wx/toplevel.h>

#include <charconv>
#include <utility>
#include <vector>

#include "practice/settings.h"

namespace host {
namespace {

constexpr int kLookEvery = 5000;  // milliseconds
constexpr int kUsualMinutes = 15;

// Where the setting cannot be read the usual minutes hold, and nobody is told every few seconds.
int LockMinutes(HostSession& session) {
  const session::Unasked nobody(session.Connection());
  std::string text;
  try {
    text = session.OfficeSetting(kDeskSection, kLockMinutes);
  } catch (const session::DatabaseError&) {
    return kUsualMinutes;
  }
  int minutes = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), minutes);
  return error == std::errc() && end == text.data() + text.size() ? minutes : kUsualMinutes;
}

// Windows without their contents and names.
class Curtain {
 public:
  Curtain() {
    for (wxWindow* window : wxTopLevelWindows) {
      auto& top = dynamic_cast<wxTopLevelWindow&>(*window);
      titles_.emplace_back(&top, top.GetTitle());
      top.SetTitle("Locked");
      for (wxWindow* part : top.GetChildren()) {
        if (!part->IsTopLevel() && part->IsShown()) {
          part->Hide();
          hidden_.push_back(part);
        }
      }
    }
  }
  Curtain(const Curtain&) = delete;
  Curtain& operator=(const Curtain&) = delete;
  ~Curtain() {
    for (wxWindow* part : hidden_) {
      part->Show();
    }
    for (const auto& [top, title] : titles_) {
      top->SetTitle(title);
    }
  }

 private:
  std::vector<std::pair<wxTopLevelWindow*, wxString>> titles_;
  std::vector<wxWindow*> hidden_;
};

}  // namespace

IdleLock::IdleLock(Desk& desk) : desk_(desk), touched_(wxGetUTCTimeMillis()) {
  wxEvtHandler::AddFilter(this);
  timer_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Look(); });
  timer_.Start(kLookEvery);
}

IdleLock::~IdleLock() {
  wxEvtHandler::RemoveFilter(this);
}

int IdleLock::FilterEvent(wxEvent& event) {
  const wxEventType type = event.GetEventType();
  if (type == wxEVT_KEY_DOWN || type == wxEVT_CHAR_HOOK || type == wxEVT_MOTION || type == wxEVT_LEFT_DOWN ||
      type == wxEVT_RIGHT_DOWN || type == wxEVT_MOUSEWHEEL) {
    touched_ = wxGetUTCTimeMillis();
  }
  return Event_Skip;
}

void IdleLock::Look() {
  // While a statement runs the windows may paint, and nothing else.
  const auto* loop = wxEventLoopBase::GetActive();
  if (locked_ || loop == nullptr || loop->IsYielding()) {
    return;
  }
  constexpr int kMinute = 60'000;
  const wxLongLong untouched = wxGetUTCTimeMillis() - touched_;
  if (untouched < kMinute) {
    return;  // the setting has no less
  }
  const int minutes = LockMinutes(desk_.Session());
  if (minutes > 0 && untouched >= static_cast<wxLongLong_t>(minutes) * kMinute) {
    Lock();
  }
}

// False when the logins could not be read: the windows stay hidden.
bool IdleLock::AskForUser() {
  try {
    desk_.AskForUser();
    return true;
  } catch (const session::DatabaseError& error) {
    if (!error.given_up) {
      desk_.User().Tell(error.Told(), std::string(forms::kSuiteTitle), forms::Icon::Critical);
    }
    return false;
  }
}

void IdleLock::Lock() {
  locked_ = true;
  {
    const Curtain curtain;
    while (!AskForUser()) {
    }
  }
  locked_ = false;
  touched_ = wxGetUTCTimeMillis();
}

}  // namespace host
