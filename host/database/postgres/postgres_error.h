#pragma once

#include <libpq-fe.h>

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

// Whether the state says that the server has ended the connection, or takes none for now.
bool IsLoss(std::string_view state);

// What the server refused, in a person's words where there is something to be done about it.
session::DatabaseError Refusal(const PGresult* result, std::string_view statement);
// A connection that is gone, or could not be made; `why` is libpq's text.
session::DatabaseError Loss(std::string_view why, std::string_view statement);

// libpq's text as a sentence on one line, without its hints.
std::string Plain(std::string_view message);

}  // namespace host
