#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <tuple>

#include "practice/machine.h"

namespace host {

struct LockedRecord {
  std::int32_t office = 0;  // 0 where the database holds one
  std::string table;        // in capitals
  std::int32_t id = 0;

  bool operator<(const LockedRecord& other) const {
    return std::tie(office, table, id) < std::tie(other.office, other.table, other.id);
  }
};

struct RecordLock {
  std::string session;  // unlike that of any other session, of whichever process
  std::string user;
  ProcessIdentity process;
  // When the session last gave a sign of life; nothing where a server knows that it lives.
  std::optional<std::chrono::sys_seconds> beat;
};

// Who holds which record of a practice, as all its programs see it. For any thread. All throw session::DatabaseError.
class LockTable {
 public:
  virtual ~LockTable() = default;

  // Takes a record that is free. Nothing when it was, otherwise the lock that stands there.
  virtual std::optional<RecordLock> Take(const LockedRecord& record, const RecordLock& lock) = 0;
  virtual std::optional<RecordLock> Find(const LockedRecord& record) = 0;
  // A sign of life of the session that holds the record; false when it does not hold it.
  virtual bool Renew(const LockedRecord& record, const std::string& session, std::chrono::sys_seconds now) = 0;
  // The same for all records that the session holds.
  virtual void RenewAll(const std::string& session, std::chrono::sys_seconds now) = 0;
  virtual void Free(const LockedRecord& record, const std::string& session) = 0;
  virtual void FreeAll(const std::string& session) = 0;
};

}  // namespace host
