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

  std::vector<std::string> statements;  // as handed to `PrepareSQL`
  std::vector<std::string> said;        // wait and status texts
  std::vector<std::string> started;     // command lines
  std::vector<session::LogEntry> logged;
  std::vector<HandOff> handed;
  std::vector<Event> events;

  void Forget() { *this = {}; }
};

}  // namespace host
