#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "practice/lock_table.h"
#include "practice/machine.h"
#include "practice/practice.h"
#include "session/session.h"

namespace host {

// A session gives a sign of life this often, and one that has given none for so long is silent.
inline constexpr std::chrono::seconds kBeatEvery{10};
inline constexpr std::chrono::seconds kSilentAfter{60};

// The records that one session holds against all others on its practice, of this process or another, each in the office
// that the session was in. What an ended process held is free; whether one lives that cannot be looked up from here is
// told by its signs of life. Throws session::DatabaseError.
class RecordLocks {
 public:
  using Clock = std::function<std::chrono::sys_seconds()>;

  RecordLocks(const OfficeDatabase& database, std::string user, ProcessIdentity process = ThisProcess(),
              Clock clock = UtcNow);
  RecordLocks(const RecordLocks&) = delete;
  RecordLocks& operator=(const RecordLocks&) = delete;
  // Releases what is held.
  ~RecordLocks();

  // Who is named from now on as who holds a record.
  void SetUser(std::string user) { user_ = std::move(user); }

  // Nothing when the session holds the record from now on, otherwise who does. Each hold needs its release. Tables are
  // named without regard to case.
  std::optional<session::RecordHolder> Hold(std::string_view table, std::int32_t id);
  // The same; a silent holder loses the record.
  std::optional<session::RecordHolder> TakeOver(std::string_view table, std::int32_t id);
  // Whether a record that was held is held still; for `kSilentAfter` it is then.
  bool Keeps(std::string_view table, std::int32_t id);
  void Release(std::string_view table, std::int32_t id);
  std::optional<session::RecordHolder> HeldByAnother(std::string_view table, std::int32_t id) const;

  // A sign of life; from any thread.
  void Beat();

 private:
  LockedRecord RecordOf(std::string_view table, std::int32_t id) const;  // in the office that the session is in
  RecordLock Mine() const { return {session_, user_, process_, clock_()}; }
  bool IsSilent(const RecordLock& lock) const;
  session::RecordHolder HolderOf(const RecordLock& lock) const;

  const OfficeDatabase& database_;
  LockTable& table_;
  std::string session_;
  std::string user_;
  ProcessIdentity process_;
  Clock clock_;
  std::map<LockedRecord, int> held_;
};

}  // namespace host
