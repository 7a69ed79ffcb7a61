#include "practice/office_locks.h"

#include <exception>

namespace host {

AdvisoryLocks& OfficeLocks::At(std::int32_t office) {
  const std::lock_guard guard(one_at_a_time_);
  auto& locks = offices_[office];
  if (locks == nullptr) {
    locks = std::make_shared<AdvisoryLocks>(
        [connect = connect_, office](const std::string& name) { return connect(name, office); });
  }
  return *locks;
}

std::map<std::int32_t, std::shared_ptr<AdvisoryLocks>> OfficeLocks::All() {
  const std::lock_guard guard(one_at_a_time_);
  return offices_;
}

std::optional<RecordLock> OfficeLocks::Take(const LockedRecord& record, const RecordLock& lock) {
  return At(record.office).Take(record, lock);
}

std::optional<RecordLock> OfficeLocks::Find(const LockedRecord& record) {
  return At(record.office).Find(record);
}

bool OfficeLocks::Renew(const LockedRecord& record, const std::string& session, std::chrono::sys_seconds now) {
  return At(record.office).Renew(record, session, now);
}

void OfficeLocks::RenewAll(const std::string& session, std::chrono::sys_seconds now) {
  std::exception_ptr failure;
  for (const auto& [office, locks] : All()) {
    try {
      locks->RenewAll(session, now);
    } catch (const session::DatabaseError&) {
      failure = std::current_exception();
    }
  }
  if (failure) {
    std::rethrow_exception(failure);
  }
}

void OfficeLocks::Free(const LockedRecord& record, const std::string& session) {
  At(record.office).Free(record, session);
}

void OfficeLocks::FreeAll(const std::string& session) {
  for (const auto& [office, locks] : All()) {
    locks->FreeAll(session);
  }
}

}  // namespace host
