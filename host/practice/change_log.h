#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "forms/dates.h"
#include "session/session.h"

// The log of what was changed, by whom and when: each column of persons, logins and rights that a session wrote, and
// every login.
namespace host {

// What was done, as the log names it.
inline constexpr std::string_view kLoggedIn = "login";
inline constexpr std::string_view kRefused = "refused";

struct LoginTry {
  std::string who;
  std::int32_t login = 0;  // 0 for a refusal
  forms::DateTime when;
};
// Puts nothing down where the database can only be read.
void LogTry(session::Database& database, const LoginTry& tried);

// How often a name was refused since it last logged in, and when last.
struct Refusals {
  int count = 0;
  forms::DateTime last;
};
Refusals RefusalsOf(session::Database& database, std::string_view who);

struct Change {
  forms::DateTime when;
  std::string who;
  std::string what;  // "added", "changed", "deleted", "login", "refused"
  std::string table;
  std::int32_t record = 0;
  std::string column;
  std::string before;
  std::string after;
};

// Which entries are wanted; what is left out asks for all.
struct ChangeFilter {
  std::string who = {};
  std::string table = {};
  std::optional<std::int32_t> record = {};
};

// The office's entries, oldest first, fetched as they are asked for.
class ChangeReader {
 public:
  ChangeReader(session::Database& database, const ChangeFilter& filter);

  // Nothing at the end.
  std::optional<Change> Next();

 private:
  std::unique_ptr<session::Recordset> rows_;
};

}  // namespace host
