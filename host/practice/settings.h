#pragma once

#include <string>
#include <string_view>

#include "session/session.h"

namespace host {

inline constexpr std::string_view kOfficeDefaults = "DEFAULT_OFFICE_SETUP";
// The provider of a new patient; "OFF_PRA_PRO" is the practice's own.
inline constexpr std::string_view kDefaultProvider = "OFF_DEF_PRO";

// The schedule of an employee for whom none was entered: its days ("Mon-Fri"), and its times ("08:00").
inline constexpr std::string_view kWorkDays = "OFF_WOR_DAY";
inline constexpr std::string_view kWorkStart = "OFF_WOR_STA";
inline constexpr std::string_view kWorkEnd = "OFF_WOR_END";

// The desk's own settings of an office: after how many idle minutes it locks itself, "0" for never; what its login says
// below the name; the command line of the word processor that letters are edited in, to which the letter is added, or
// empty for the machine's own.
inline constexpr std::string_view kDeskSection = "DESK";
inline constexpr std::string_view kLockMinutes = "LOCK_MINUTES";
inline constexpr std::string_view kLoginHint = "LOGIN_HINT";
inline constexpr std::string_view kWordProcessor = "WORD_PROCESSOR";

// Options belong to a login name. Sections and keys are compared without regard to case. An absent one is empty.
std::string ReadOfficeSetting(session::Database& database, std::string_view section, std::string_view key);
void WriteOfficeSetting(session::Database& database, std::string_view section, std::string_view key,
                        std::string_view value);
std::string ReadUserOption(session::Database& database, std::string_view user, std::string_view section,
                           std::string_view key);
void WriteUserOption(session::Database& database, std::string_view user, std::string_view section, std::string_view key,
                     std::string_view value);

}  // namespace host
