#pragma once

#include <string>
#include <string_view>

#include "database/odbc/odbc_text.h"
#include "session/connection.h"

namespace host {

// What a driver says of a call that failed.
struct OdbcDiagnosis {
  std::string state;    // SQLSTATE
  std::string message;  // as it came
};

OdbcDiagnosis DiagnosisOf(SQLSMALLINT kind, SQLHANDLE handle);

// What the server refused, as `Refused` says it. `lost` is whether the driver knows its connection to be gone.
session::DatabaseError OdbcRefusal(const OdbcDiagnosis& diagnosis, bool lost, std::string_view statement);
// Names the database by its connection string, without the password.
session::DatabaseError CannotConnect(const std::string& connection_string, const OdbcDiagnosis& diagnosis);

}  // namespace host
