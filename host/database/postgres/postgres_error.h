#pragma once

#include <string>
#include <string_view>

#include "session/connection.h"

namespace host {

// SQLSTATE as `DatabaseError::Code`: its five characters read as a number in base 36, "23505" as 3505685. 0 for none.
constexpr int CodeOfState(std::string_view state) {
  int code = 0;
  for (const char c : state) {
    code = 36 * code + (c >= '0' && c <= '9' ? c - '0' : c - 'A' + 10);
  }
  return code;
}

// What a server says of a statement that it refused, by the names of its protocol's fields.
struct PostgresRefusal {
  std::string state;
  std::string message;
  std::string detail = {};
  std::string table = {};
  std::string column = {};
  std::string constraint = {};
};

// What the server refused, in a person's words where there is something to be done about it.
session::DatabaseError Refused(const PostgresRefusal& refusal, std::string_view statement);
// A connection that is gone, or could not be made; `why` is the library's text.
session::DatabaseError Loss(std::string_view why, std::string_view statement);

// libpq's text as a sentence on one line, without its hints.
std::string Plain(std::string_view message);
// The failure of a change, or of a commit: one that the connection was lost in may have been made.
session::DatabaseError OfAChange(const session::DatabaseError& error);

}  // namespace host
