#include "practice/record_locks.h"

#include <algorithm>
#include <random>

#include "forms/text.h"

namespace host {
namespace {

std::string NewSession() {
  std::random_device chance;
  return std::to_string(chance()) + "-" + std::to_string(chance()) + "-" + std::to_string(chance());
}

}  // namespace

RecordLocks::RecordLocks(const OfficeDatabase& database, std::string user, ProcessIdentity process, Clock clock)
    : database_(database),
      table_(database.Locks()),
      session_(NewSession()),
      user_(std::move(user)),
      process_(std::move(process)),
      clock_(std::move(clock)) {}

RecordLocks::~RecordLocks() {
  try {
    table_.FreeAll(session_);
  } catch (const session::DatabaseError&) {
    held_.clear();  // the locks fall with the process
  }
}

LockedRecord RecordLocks::RecordOf(std::string_view table, std::int32_t id) const {
  const bool scoped = database_.DatabaseKind() == session::kOfficeScoped;
  return {scoped ? database_.CurrentOfficeID() : 0, forms::ToUpper(table), id};
}

// Clocks of two machines may differ, either way.
bool RecordLocks::IsSilent(const RecordLock& lock) const {
  return lock.beat && StateOf(lock.process) == ProcessState::Elsewhere &&
         std::chrono::abs(clock_() - *lock.beat) > kSilentAfter;
}

session::RecordHolder RecordLocks::HolderOf(const RecordLock& lock) const {
  return {lock.user, lock.process.machine, IsSilent(lock)};
}

std::optional<session::RecordHolder> RecordLocks::Hold(std::string_view table, std::int32_t id) {
  LockedRecord record = RecordOf(table, id);
  if (const auto found = held_.find(record); found != held_.end()) {
    if (!table_.Renew(record, session_, clock_())) {
      return HeldByAnother(table, id).value_or(session::RecordHolder());
    }
    ++found->second;
    return std::nullopt;
  }
  auto other = table_.Take(record, Mine());
  if (other && StateOf(other->process) == ProcessState::Ended) {
    table_.Free(record, other->session);
    other = table_.Take(record, Mine());
  }
  if (other && other->session != session_) {  // what failed to be released is still held
    return HolderOf(*other);
  }
  held_.emplace(std::move(record), 1);
  return std::nullopt;
}

std::optional<session::RecordHolder> RecordLocks::TakeOver(std::string_view table, std::int32_t id) {
  const LockedRecord record = RecordOf(table, id);
  if (const auto other = table_.Find(record); other && IsSilent(*other)) {
    table_.Free(record, other->session);
  }
  return Hold(table, id);
}

bool RecordLocks::Keeps(std::string_view table, std::int32_t id) {
  return table_.Renew(RecordOf(table, id), session_, clock_());
}

void RecordLocks::Release(std::string_view table, std::int32_t id) {
  const LockedRecord wanted = RecordOf(table, id);
  auto found = held_.find(wanted);
  if (found == held_.end()) {  // held in another office, which the session has left since
    found = std::ranges::find_if(
        held_, [&](const auto& held) { return held.first.table == wanted.table && held.first.id == wanted.id; });
  }
  if (found == held_.end() || --found->second > 0) {
    return;
  }
  const LockedRecord record = found->first;
  held_.erase(found);
  table_.Free(record, session_);
}

std::optional<session::RecordHolder> RecordLocks::HeldByAnother(std::string_view table, std::int32_t id) const {
  const auto lock = table_.Find(RecordOf(table, id));
  if (!lock || lock->session == session_ || StateOf(lock->process) == ProcessState::Ended) {
    return std::nullopt;
  }
  return HolderOf(*lock);
}

void RecordLocks::Beat() {
  table_.RenewAll(session_, clock_());
}

}  // namespace host
