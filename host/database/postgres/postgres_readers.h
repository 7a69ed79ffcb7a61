#pragma once

#include <future>
#include <memory>
#include <mutex>
#include <vector>

#include "database/postgres/postgres_handle.h"

namespace host {

// Connections that read, each for one recordset at a time; they see what has been committed. A few are kept. Nobody
// waits while the server is told to stop what was not read to its end.
class PostgresReaders {
 public:
  struct GiveBack {
    PostgresReaders* readers = nullptr;
    void operator()(PostgresHandle* reader) const { readers->Take(reader); }
  };
  using Lease = std::unique_ptr<PostgresHandle, GiveBack>;

  // All outlive the readers.
  PostgresReaders(const PostgresUrl& url, const PostgresSettings& fixed, const session::WhileBusy& while_busy);

  // `aside` is for a look beside a statement that goes on. Throws session::DatabaseError.
  Lease Borrow(bool aside = false);
  void Interrupt();

 private:
  void Take(PostgresHandle* reader);
  void Keep(std::unique_ptr<PostgresHandle> reader);

  const PostgresUrl& url_;
  PostgresSettings fixed_;
  const session::WhileBusy& while_busy_;
  std::mutex changing_;  // Interrupt comes from other threads
  std::vector<std::unique_ptr<PostgresHandle>> lent_;
  std::vector<std::unique_ptr<PostgresHandle>> idle_;
  std::vector<std::future<std::unique_ptr<PostgresHandle>>> stopping_;
};

}  // namespace host
