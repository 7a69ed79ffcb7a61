#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "database/odbc/odbc_handle.h"
#include "database/odbc/odbc_source.h"

namespace host {

// Connections that read, each for one recordset at a time; they see what has been committed. A few are kept.
class OdbcReaders {
 public:
  struct GiveBack {
    OdbcReaders* readers = nullptr;
    void operator()(OdbcHandle* reader) const { readers->Take(reader); }
  };
  using Lease = std::unique_ptr<OdbcHandle, GiveBack>;

  // `made` is called with every new one. All outlive the readers.
  OdbcReaders(const OdbcSource& source, const session::WhileBusy& while_busy, std::function<void(OdbcHandle&)> made)
      : source_(source), while_busy_(while_busy), made_(std::move(made)) {}

  // Throws session::DatabaseError.
  Lease Borrow();
  // Whether one is idle that was connected earlier, and may have been lost since.
  bool HaveIdle() const { return !idle_.empty(); }
  void DropIdle() { idle_.clear(); }
  void Interrupt();

 private:
  void Take(OdbcHandle* reader);

  const OdbcSource& source_;
  const session::WhileBusy& while_busy_;
  std::function<void(OdbcHandle&)> made_;
  std::mutex changing_;  // Interrupt comes from other threads
  std::vector<std::unique_ptr<OdbcHandle>> lent_;
  std::vector<std::unique_ptr<OdbcHandle>> idle_;
};

}  // namespace host
