#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "practice/lock_table.h"
#include "session/connection.h"

namespace host {

// The locks as PostgreSQL's advisory locks, on a connection of their own for each session that holds any: the server
// frees them with the connection, at the latest some 60 seconds after its machine has gone. Holders go by the name of
// their connection. A lock that fell because the server ended the connection is taken again with the next sign of
// life, unless somebody else has come first.
class AdvisoryLocks final : public LockTable {
 public:
  // A further connection, which the server knows by the name.
  using Connect = std::function<std::unique_ptr<session::Connection>(const std::string& name)>;

  explicit AdvisoryLocks(Connect connect) : connect_(std::move(connect)) {}

  std::optional<RecordLock> Take(const LockedRecord& record, const RecordLock& lock) override;
  std::optional<RecordLock> Find(const LockedRecord& record) override;
  bool Renew(const LockedRecord& record, const std::string& session, std::chrono::sys_seconds now) override;
  void RenewAll(const std::string& session, std::chrono::sys_seconds now) override;
  void Free(const LockedRecord& record, const std::string& session) override;
  void FreeAll(const std::string& session) override;

 private:
  // What one user of a session holds.
  struct Holder {
    std::unique_ptr<session::Connection> connection;
    RecordLock lock;
    std::map<LockedRecord, std::string> held;  // each with the server's process that holds it
  };
  using Holders = std::map<std::pair<std::string, std::string>, Holder>;

  Holder& HolderFor(const RecordLock& lock);
  Holder* HolderOf(const LockedRecord& record);
  std::optional<RecordLock> Read(const LockedRecord& record);
  bool Renew(const LockedRecord& record, Holder& holder);

  Connect connect_;
  Holders holders_;  // by session and user
  std::unique_ptr<session::Connection> looking_;
  std::mutex one_at_a_time_;
};

// The name of a holder's connection, "ann@FRONT-DESK": printable ASCII of at most 63 bytes, which is what the server
// keeps. Other characters stand as %XX, byte by byte of UTF-8; what is too long is cut between characters.
std::string HolderName(std::string_view user, std::string_view machine);
// The user and the machine that a name says; both empty for one that `HolderName` has not made.
std::pair<std::string, std::string> UserAndMachine(std::string_view name);

}  // namespace host
