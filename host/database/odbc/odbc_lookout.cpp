#include "database/odbc/odbc_lookout.h"

namespace host {

bool OdbcLookout::IsBlocked(const std::string& process) {
  return Holds("pg_catalog.cardinality(pg_catalog.pg_blocking_pids(" + process + "))>0");
}

bool OdbcLookout::Cancel(const std::string& process) {
  return Holds("pg_catalog.pg_cancel_backend(" + process + ")");
}

bool OdbcLookout::Holds(const std::string& condition) {
  static const session::WhileBusy nobody;
  const std::string select = "SELECT 1 WHERE " + condition;
  const std::lock_guard lock(asking_);
  try {
    if (handle_ == nullptr) {
      handle_ = std::make_unique<OdbcHandle>(source_.connection_string, source_.fixed_for_reading, nobody);
    }
    const OdbcStatement statement = handle_->Execute(select, select);
    return handle_->Work(statement.get(), select, [&] { return SQLFetch(statement.get()); });
  } catch (const session::DatabaseError&) {
    handle_.reset();
    return false;
  }
}

}  // namespace host
