#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <tuple>

#include "data/sql.h"
#include "practice/machine.h"
#include "session/connection.h"

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
  std::chrono::sys_seconds beat;  // when the session last gave a sign of life
};

// Who holds which record of a practice: a row a lock, that all its programs see. For any thread. All throw
// session::DatabaseError.
class LockTable {
 public:
  explicit LockTable(std::unique_ptr<session::Connection> connection);

  // Takes a record that is free. Nothing when it was, otherwise the lock that stands there.
  std::optional<RecordLock> Take(const LockedRecord& record, const RecordLock& lock);
  std::optional<RecordLock> Find(const LockedRecord& record) const;
  // A sign of life of the session that holds the record; false when it does not hold it.
  bool Renew(const LockedRecord& record, const std::string& session, std::chrono::sys_seconds now);
  // The same for all records that the session holds.
  void RenewAll(const std::string& session, std::chrono::sys_seconds now);
  void Free(const LockedRecord& record, const std::string& session);
  void FreeAll(const std::string& session);

 private:
  std::unique_ptr<session::Recordset> Run(const data::Sql& statement) const;
  std::optional<RecordLock> Read(const LockedRecord& record) const;

  std::unique_ptr<session::Connection> connection_;
  mutable std::mutex one_at_a_time_;
};

}  // namespace host
