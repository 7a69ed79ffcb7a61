#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "practice/advisory_locks.h"
#include "practice/lock_table.h"

namespace host {

// The locks of a group of practices, each at the server of its office, where all who work in the office look for it. An
// office that moves takes no locks along: each is taken again at the new home with its next sign of life, unless
// somebody else has come first.
class OfficeLocks final : public LockTable {
 public:
  // A further connection to an office's server, which knows it by the name.
  using Connect = std::function<std::unique_ptr<session::Connection>(const std::string& name, int office)>;

  explicit OfficeLocks(Connect connect) : connect_(std::move(connect)) {}

  std::optional<RecordLock> Take(const LockedRecord& record, const RecordLock& lock) override;
  std::optional<RecordLock> Find(const LockedRecord& record) override;
  bool Renew(const LockedRecord& record, const std::string& session, std::chrono::sys_seconds now) override;
  // An office whose server cannot be reached keeps no other from its signs of life.
  void RenewAll(const std::string& session, std::chrono::sys_seconds now) override;
  void Free(const LockedRecord& record, const std::string& session) override;
  void FreeAll(const std::string& session) override;

 private:
  AdvisoryLocks& At(std::int32_t office);
  std::map<std::int32_t, std::shared_ptr<AdvisoryLocks>> All();

  Connect connect_;
  std::map<std::int32_t, std::shared_ptr<AdvisoryLocks>> offices_;
  std::mutex one_at_a_time_;
};

}  // namespace host
