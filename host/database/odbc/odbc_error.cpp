#include "database/odbc/odbc_error.h"

#include <algorithm>
#include <array>

#include "database/postgres/postgres_error.h"
#include "database/shown_url.h"
#include "forms/text.h"
#include "session/sql_state.h"

namespace host {
namespace {

constexpr std::size_t kStateSize = 5;
// What drivers cut their messages at, or more.
constexpr std::size_t kMessageSize = 4096;

// What the server said: "[unixODBC][Driver]ERROR: it is not there;\nError while executing" without the names of the
// programs that it came through, and what the driver was doing behind it.
std::string_view WithoutDriver(std::string_view message) {
  while (message.starts_with('[') && message.find(']') != std::string_view::npos) {
    message = forms::Trim(message.substr(message.find(']') + 1));
  }
  return forms::Trim(message.substr(0, message.find(";\n")));
}

// The name in quotes behind a word; empty when there is none.
std::string NameBehind(std::string_view message, std::string_view word) {
  const std::string before = std::string(word) + " \"";
  const std::size_t at = message.find(before);
  if (at == std::string_view::npos) {
    return {};
  }
  message.remove_prefix(at + before.size());
  return std::string(message.substr(0, message.find('"')));
}

// A driver gives the server's words alone.
PostgresRefusal RefusalOf(const OdbcDiagnosis& diagnosis) {
  std::string_view message = WithoutDriver(diagnosis.message);
  std::string_view detail;
  if (const std::size_t at = message.find("\nDETAIL:"); at != std::string_view::npos) {
    detail = forms::Trim(message.substr(message.find(':', at) + 1));
    message = message.substr(0, at);
  }
  if (message.starts_with("ERROR:")) {
    message = forms::Trim(message.substr(message.find(':') + 1));
  }
  return {.state = diagnosis.state,
          .message = std::string(message),
          .detail = std::string(detail.substr(0, detail.find('\n'))),
          .table = NameBehind(message, "relation"),
          .column = NameBehind(message, "column"),
          .constraint = NameBehind(message, "constraint")};
}

}  // namespace

OdbcDiagnosis DiagnosisOf(SQLSMALLINT kind, SQLHANDLE handle) {
  std::array<SQLWCHAR, kStateSize + 1> state{};
  std::array<SQLWCHAR, kMessageSize> message{};
  SQLINTEGER code = 0;
  SQLSMALLINT size = 0;
  if (!SQL_SUCCEEDED(SQLGetDiagRecW(kind, handle, 1, state.data(), &code, message.data(),
                                    static_cast<SQLSMALLINT>(message.size()), &size))) {
    return {"HY000", "The driver gives no reason."};
  }
  const std::size_t written = std::min(static_cast<std::size_t>(size), message.size() - 1);
  return {FromOdbcText(state.data(), kStateSize), FromOdbcText(message.data(), written)};
}

session::DatabaseError OdbcRefusal(const OdbcDiagnosis& diagnosis, bool lost, std::string_view statement) {
  PostgresRefusal refusal = RefusalOf(diagnosis);
  if (lost) {
    return Loss(refusal.message, statement);
  }
  // As ODBC says that a statement was ended.
  if (refusal.state == "HY008") {
    refusal.state = "57014";
  }
  return Refused(refusal, statement);
}

session::DatabaseError CannotConnect(const std::string& connection_string, const OdbcDiagnosis& diagnosis) {
  using session::DatabaseError;
  return {"The database \"" + ShownUrl(connection_string) +
              "\" cannot be reached: " + Plain(WithoutDriver(diagnosis.message)),
          {},
          CodeOfState(diagnosis.state),
          session::IsLoss(diagnosis.state) ? DatabaseError::Origin::Connection : DatabaseError::Origin::Engine};
}

}  // namespace host
