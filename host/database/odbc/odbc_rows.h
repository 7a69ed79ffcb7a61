#pragma once

#include <string>
#include <vector>

#include "database/odbc/odbc_handle.h"

namespace host {

// The fields of a result, by what the driver tells of them; none for a statement that has no rows.
std::vector<session::Field> OdbcFields(SQLHSTMT statement);

struct OdbcRows {
  std::vector<std::vector<session::Value>> values;
  bool ended = false;  // there are no more
};

// Fetches the next rows of a result, `most` of them or what there is.
OdbcRows FetchOdbcRows(OdbcHandle& handle, SQLHSTMT statement, const std::vector<session::Field>& fields,
                       std::size_t most, const std::string& batch);

}  // namespace host
