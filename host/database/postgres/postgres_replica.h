#pragma once

#include <functional>
#include <string>

#include "database/postgres/postgres_readers.h"

namespace host {

// Readers on a server that follows the practice's, where the URL names one. They are lent only when it has everything
// that the practice's server has: nobody reads what is no longer so.
class PostgresReplica {
 public:
  // A select that the practice's server words: true where a server follows it and has everything that it has, null
  // where one does not follow it.
  using Question = std::function<std::string()>;

  // All outlive the replica.
  PostgresReplica(const PostgresUrl& url, const PostgresSettings& fixed, const session::WhileBusy& while_busy,
                  Question question);

  // Null where there is none, and while it cannot be reached, lags or follows no more.
  PostgresReaders::Lease Borrow();
  void Interrupt() { readers_.Interrupt(); }

 private:
  PostgresUrl url_;
  PostgresReaders readers_;
  Question question_;
  std::chrono::steady_clock::time_point next_try_;  // after it could not be reached, or followed no more
};

}  // namespace host
