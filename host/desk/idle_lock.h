#pragma once

#include <wx/eventfilter.h>
#include <wx/timer.h>

#include "desk/desk.h"

namespace host {

// Locks a desk that nobody has touched for the minutes of its office's setting: what the windows show is hidden, and
// nothing of it lost, until its user has given his password.
class IdleLock : private wxEventFilter {
 public:
  explicit IdleLock(Desk& desk);
  IdleLock(const IdleLock&) = delete;
  IdleLock& operator=(const IdleLock&) = delete;
  ~IdleLock() override;

  void Lock();

 private:
  int FilterEvent(wxEvent& event) override;
  void Look();
  bool AskForUser();

  Desk& desk_;
  wxTimer timer_;
  wxLongLong touched_;  // milliseconds
  bool locked_ = false;
};

}  // namespace host
