#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/dates.h"
#include "session/session.h"

namespace host {

// An entry of the comment log, the change log or "INS_LOG" as it is kept.
struct LoggedEntry {
  session::LogEntry entry;
  std::string user;
  forms::DateTime when;

  // By its category ("LogEmp") or by its log ("CM", "INS_LOG"), without regard to case.
  bool IsOf(std::string_view category) const;
};

void AppendToLog(session::Database& database, const LoggedEntry& logged);
// The office's entries, oldest first.
std::vector<LoggedEntry> ReadLog(session::Database& database);

}  // namespace host
