#pragma once

#include <string>
#include <vector>

#include "practice/host_session.h"

namespace host {

// What screens asked of the session and told the host, in order.
struct Recordings {
  struct Event {
    std::string name;
    std::vector<std::string> values;
  };

  struct Sent {
    std::string kind;
    std::string text;
  };

  std::vector<std::string> statements;  // as handed to `PrepareSQL`
  std::size_t behind_found = 0;         // the statement behind the one that a check found last
  std::vector<std::string> said;        // wait and status texts
  std::vector<std::string> started;     // command lines
  std::vector<session::LogEntry> logged;
  std::vector<HandOff> handed;
  std::vector<Event> events;
  std::string copied;                // what stands on the clipboard
  std::vector<std::string> printed;  // pages, as text
  std::vector<Sent> sent;            // messages that the reminder service took

  void Forget() { *this = {}; }
};

}  // namespace host
