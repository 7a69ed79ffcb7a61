#pragma once

#ifdef _WIN32
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// Text as ODBC's drivers take it, with a zero behind it.
std::vector<SQLWCHAR> ToOdbcText(std::string_view utf8);
std::string FromOdbcText(const SQLWCHAR* text, std::size_t size);

}  // namespace host
