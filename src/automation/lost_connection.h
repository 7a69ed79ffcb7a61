#pragma once

#include <windows.h>

#include <string>

#include "session/connection.h"

namespace automation {

// Numbers of errors by which objects tell one another that the connection to the database was lost. Windows' own of
// network connections: ERROR_CONNECTION_INVALID, nothing was done; ERROR_CONNECTION_ABORTED, it may have been; and
// ERROR_CANCELLED, nothing was done, and the person was asked and gave it up.
inline constexpr auto kConnectionLost = static_cast<HRESULT>(0x800704CD);
inline constexpr auto kChangeUnanswered = static_cast<HRESULT>(0x800704D4);
inline constexpr auto kGivenUp = static_cast<HRESULT>(0x800704C7);

// What a caller is told of a failure: its number where that is a HRESULT.
inline HRESULT ResultOf(const session::DatabaseError& error) {
  if (error.ConnectionLost()) {
    if (error.given_up) {
      return kGivenUp;
    }
    return error.Unanswered() ? kChangeUnanswered : kConnectionLost;
  }
  return error.Code() < 0 ? static_cast<HRESULT>(error.Code()) : E_FAIL;
}

// The failure that a caller was told so.
inline session::DatabaseError FailureOf(HRESULT result, const std::string& message) {
  using Origin = session::DatabaseError::Origin;
  Origin origin = result == kConnectionLost || result == kGivenUp ? Origin::Connection : Origin::Engine;
  origin = result == kChangeUnanswered ? Origin::Unanswered : origin;
  session::DatabaseError error(message, {}, static_cast<int>(result), origin);
  error.given_up = result == kGivenUp;
  return error;
}

}  // namespace automation
