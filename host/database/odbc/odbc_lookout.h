#pragma once

#include <memory>
#include <mutex>
#include <string>

#include "database/odbc/odbc_handle.h"
#include "database/odbc/odbc_source.h"

namespace host {

// A connection to a PostgreSQL server that sees after what others to it are doing, by the processes that serve them
// there; made when it is first needed. From whichever thread.
class OdbcLookout {
 public:
  // `source` outlives it.
  explicit OdbcLookout(const OdbcSource& source) : source_(source) {}

  // Whether the process waits for another program; not, where that cannot be told.
  bool IsBlocked(const std::string& process);
  // Ends the statement that the process carries out. Whether that could be told to it.
  bool Cancel(const std::string& process);

 private:
  bool Holds(const std::string& condition);

  const OdbcSource& source_;
  std::mutex asking_;
  std::unique_ptr<OdbcHandle> handle_;
};

}  // namespace host
