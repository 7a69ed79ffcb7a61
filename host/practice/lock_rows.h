#pragma once

#include <memory>
#include <mutex>
#include <string>

#include "data/sql.h"
#include "practice/lock_table.h"
#include "session/connection.h"

namespace host {

// The locks as rows of a table, a row a lock.
class LockRows final : public LockTable {
 public:
  explicit LockRows(std::unique_ptr<session::Connection> connection);

  std::optional<RecordLock> Take(const LockedRecord& record, const RecordLock& lock) override;
  std::optional<RecordLock> Find(const LockedRecord& record) override;
  bool Renew(const LockedRecord& record, const std::string& session, std::chrono::sys_seconds now) override;
  void RenewAll(const std::string& session, std::chrono::sys_seconds now) override;
  void Free(const LockedRecord& record, const std::string& session) override;
  void FreeAll(const std::string& session) override;

 private:
  std::unique_ptr<session::Recordset> Run(const data::Sql& statement) const;
  std::optional<RecordLock> Read(const LockedRecord& record) const;

  std::unique_ptr<session::Connection> connection_;
  std::mutex one_at_a_time_;
};

}  // namespace host
