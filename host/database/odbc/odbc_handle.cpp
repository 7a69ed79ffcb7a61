#include "database/odbc/odbc_handle.h"

#include <algorithm>
#include <array>

#include "database/odbc/odbc_error.h"

namespace host {
namespace {

// Seconds that a server has to answer a new connection.
constexpr SQLULEN kLoginSeconds = 10;
// Calls of `while_busy` between looks at who is waited for: half a second.
constexpr int kLookEvery = 50;
// A driver that was ended sends statements of its own to the server, which must not be ended as well.
constexpr std::chrono::milliseconds kCleaningUp{100};

// An attribute's number in the pointer's place, as ODBC takes it.
SQLPOINTER Number(SQLULEN value) {
  return reinterpret_cast<SQLPOINTER>(value);  // NOLINT(performance-no-int-to-ptr): ODBC's own form
}

SQLHANDLE Allocated(SQLSMALLINT kind, SQLHANDLE parent) {
  SQLHANDLE handle = nullptr;
  SQLAllocHandle(kind, parent, &handle);
  if (kind == SQL_HANDLE_ENV) {
    SQLSetEnvAttr(handle, SQL_ATTR_ODBC_VERSION, Number(SQL_OV_ODBC3), 0);
  }
  return handle;
}

}  // namespace

void OdbcHandle::FreeConnection::operator()(SQLHDBC handle) const {
  // A connection with a transaction is not ended.
  SQLEndTran(SQL_HANDLE_DBC, handle, SQL_ROLLBACK);
  SQLDisconnect(handle);
  SQLFreeHandle(SQL_HANDLE_DBC, handle);
}

OdbcHandle::OdbcHandle(const std::string& connection_string, const PostgresSettings& fixed,
                       const session::WhileBusy& while_busy)
    : while_busy_(while_busy),
      environment_(Allocated(SQL_HANDLE_ENV, nullptr)),
      connection_(Allocated(SQL_HANDLE_DBC, environment_.get())) {
  SQLSetConnectAttrW(connection_.get(), SQL_ATTR_LOGIN_TIMEOUT, Number(kLoginSeconds), 0);
  std::vector<SQLWCHAR> text = ToOdbcText(connection_string);
  if (!SQL_SUCCEEDED(SQLDriverConnectW(connection_.get(), nullptr, text.data(), SQL_NTS, nullptr, 0, nullptr,
                                       SQL_DRIVER_NOPROMPT))) {
    throw CannotConnect(connection_string, DiagnosisOf(SQL_HANDLE_DBC, connection_.get()));
  }
  Set(fixed);
}

OdbcHandle::~OdbcHandle() = default;

bool OdbcHandle::ReadOnly() const {
  return Told(SQL_DATA_SOURCE_READ_ONLY) == "Y";
}

std::string OdbcHandle::ServerName() const {
  return Told(SQL_DBMS_NAME);
}

std::string OdbcHandle::Told(SQLUSMALLINT what) const {
  std::array<SQLWCHAR, 128> text{};
  SQLSMALLINT bytes = 0;
  SQLGetInfoW(connection_.get(), what, text.data(), sizeof(text), &bytes);
  return FromOdbcText(text.data(), std::min(static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR), text.size() - 1));
}

bool OdbcHandle::Lost() const {
  SQLUINTEGER dead = SQL_CD_FALSE;
  SQLGetConnectAttrW(connection_.get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
  return dead == SQL_CD_TRUE;
}

OdbcStatement OdbcHandle::Allocate() {
  SQLHSTMT statement = nullptr;
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, connection_.get(), &statement))) {
    throw Refusal();
  }
  {
    const std::lock_guard lock(working_);
    interrupted_ = nullptr;  // its number may be this one's
  }
  // A brace in a text is no escape of ODBC's.
  SQLSetStmtAttrW(statement, SQL_ATTR_NOSCAN, Number(SQL_NOSCAN_ON), 0);
  return OdbcStatement(statement);
}

bool OdbcHandle::Work(SQLHSTMT statement, const std::string& batch, const std::function<int()>& call) {
  const auto at_work = [this, statement](SQLHSTMT now) {
    const std::lock_guard lock(working_);
    at_work_ = now;
    return interrupted_ == statement;
  };
  at_work(undisturbed ? nullptr : statement);
  const int returned = WaitFor(call);
  const bool interrupted = at_work(nullptr);
  if (returned != SQL_NO_DATA && !SQL_SUCCEEDED(returned)) {
    OdbcDiagnosis diagnosis = DiagnosisOf(SQL_HANDLE_STMT, statement);
    // A driver manager finds one that was ended out of order, and a driver may have no reason of its own.
    if (interrupted && diagnosis.state.starts_with("HY")) {
      diagnosis.state = "HY008";
    }
    throw OdbcRefusal(diagnosis, Lost(), batch);
  }
  return returned != SQL_NO_DATA;
}

OdbcStatement OdbcHandle::Execute(const std::string& text, const std::string& batch) {
  OdbcStatement statement = Allocate();
  std::vector<SQLWCHAR> units = ToOdbcText(text);
  Work(statement.get(), batch, [&] { return SQLExecDirectW(statement.get(), units.data(), SQL_NTS); });
  return statement;
}

void OdbcHandle::Ask(const std::string& select) {
  const OdbcStatement statement = Execute(select, select);
  while (Work(statement.get(), select, [&] { return SQLFetch(statement.get()); })) {
  }
}

bool OdbcHandle::Set(const PostgresSettings& settings) {
  std::string calls;
  for (const auto& [name, value] : settings) {
    if (const auto known = set_.find(name); known == set_.end() || known->second != value) {
      calls += (calls.empty() ? "SELECT " : ", ") + ("set_config('" + name + "', " + Quoted(value) + ", false)");
    }
  }
  if (calls.empty()) {
    return false;
  }
  Ask(calls);
  for (const auto& [name, value] : settings) {
    set_[name] = value;
  }
  return true;
}

void OdbcHandle::BeginTrans() {
  if (!SQL_SUCCEEDED(SQLSetConnectAttrW(connection_.get(), SQL_ATTR_AUTOCOMMIT, Number(SQL_AUTOCOMMIT_OFF), 0))) {
    throw Refusal();
  }
}

void OdbcHandle::EndTrans(bool commit) {
  SQLHDBC connection = connection_.get();
  const bool ended = SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, connection, commit ? SQL_COMMIT : SQL_ROLLBACK));
  const OdbcDiagnosis diagnosis = ended ? OdbcDiagnosis() : DiagnosisOf(SQL_HANDLE_DBC, connection);
  if (!ended || !commit) {
    set_.clear();
    SQLEndTran(SQL_HANDLE_DBC, connection, SQL_ROLLBACK);
  }
  SQLSetConnectAttrW(connection, SQL_ATTR_AUTOCOMMIT, Number(SQL_AUTOCOMMIT_ON), 0);
  if (!ended) {
    throw OdbcRefusal(diagnosis, Lost(), {});
  }
}

void OdbcHandle::Interrupt() {
  const std::lock_guard lock(working_);
  const auto now = std::chrono::steady_clock::now();
  if (at_work_ != nullptr && (interrupted_ != at_work_ || now - interrupted_at_ > kCleaningUp)) {
    interrupted_ = at_work_;
    interrupted_at_ = now;
    if (!ends_statement || !ends_statement()) {
      SQLCancel(at_work_);
    }
  }
}

// No driver calls back while it waits.
int OdbcHandle::WaitFor(const std::function<int()>& call) {
  if (!while_busy_) {
    return call();
  }
  int calls = 0;
  bool waiting = false;
  bool told = false;
  bool given_up = false;
  const int returned = worker_.Run(call, [&] {
    if (!given_up && ++calls % kLookEvery == 0 && waits_for_another) {
      waiting = waits_for_another();
    }
    told = true;
    given_up = given_up || while_busy_(waiting ? session::Busy::Waiting : session::Busy::Running);
    if (given_up) {
      Interrupt();
    }
  });
  if (told && while_busy_) {
    while_busy_(session::Busy::Done);
  }
  return returned;
}

session::DatabaseError OdbcHandle::Refusal() const {
  return OdbcRefusal(DiagnosisOf(SQL_HANDLE_DBC, connection_.get()), Lost(), {});
}

}  // namespace host
