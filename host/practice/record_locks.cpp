#include "practice/record_locks.h"

#include <atomic>
#include <charconv>
#include <vector>

#include "data/literal.h"
#include "data/statements.h"
#include "forms/text.h"

namespace host {
namespace {

using data::Literal;

std::int32_t NextSession() {
  static std::atomic<std::int32_t> last{0};
  return ++last;
}

// "1234/56789/1/machine": the session last of a process, which the machine tells apart from others.
std::string OwnerText(const ProcessIdentity& process, std::int32_t session) {
  return std::to_string(process.number) + "/" + std::to_string(process.started) + "/" + std::to_string(session) + "/" +
         process.machine;
}

ProcessIdentity ProcessOf(std::string_view owner) {
  const auto take = [&owner] {
    std::int64_t number = 0;
    const auto end = owner.find('/');
    std::from_chars(owner.data(), owner.data() + end, number);
    owner.remove_prefix(end == std::string_view::npos ? owner.size() : end + 1);
    return number;
  };
  ProcessIdentity process;
  process.number = take();
  process.started = take();
  take();
  process.machine = owner;
  return process;
}

}  // namespace

RecordLocks::RecordLocks(session::Database& database, std::string user, const ProcessIdentity& process)
    : database_(database), user_(std::move(user)), owner_(OwnerText(process, NextSession())) {}

RecordLocks::~RecordLocks() {
  try {
    while (!held_.empty()) {
      const Key key = held_.begin()->first;
      held_.erase(held_.begin());
      Free(key);
    }
  } catch (const session::DatabaseError&) {
    // The locks fall with the process.
  }
}

RecordLocks::Key RecordLocks::KeyOf(std::string_view table, std::int32_t id) const {
  return {database_.CurrentOfficeID(), forms::ToUpper(table), id};
}

data::Sql RecordLocks::OfRecord(const Key& key) const {
  const bool scoped = data::Statements(database_).OfficeScoped();
  return "(RLTable=" + Literal(key.table) + ") AND (RLRecID=" + Literal(key.id) + ")" +
         (scoped ? " AND (OfficeID=" + Literal(key.office) + ")" : data::Sql());
}

std::string RecordLocks::OwnerOf(const Key& key) const {
  return session::ToText(
      data::Statements(database_).SelectValue("SELECT RLOwner FROM RecordLockTable WHERE " + OfRecord(key)));
}

bool RecordLocks::Hold(std::string_view table, std::int32_t id) {
  Key key = KeyOf(table, id);
  if (const auto found = held_.find(key); found != held_.end()) {
    ++found->second;
    return true;
  }
  const data::Statements statements(database_);
  const bool scoped = statements.OfficeScoped();
  // One statement takes a record that is free; where two come at once, the unique index lets one of them in.
  statements.Execute("INSERT INTO RecordLockTable (RLTable, RLRecID, RLWho, RLOwner" +
                     (scoped ? data::Sql(", OfficeID") : data::Sql()) + ") VALUES (" + Literal(key.table) + ", " +
                     Literal(id) + ", " + Literal(user_) + ", " + Literal(owner_) + statements.Office(", ", "") +
                     ") ON CONFLICT DO NOTHING");
  std::string owner = OwnerOf(key);
  if (!owner.empty() && owner != owner_ && !MayBeAlive(ProcessOf(owner))) {
    // So does one that takes over from the dead.
    statements.Execute("UPDATE RecordLockTable SET RLWho=" + Literal(user_) + ", RLOwner=" + Literal(owner_) +
                       " WHERE (RLOwner=" + Literal(owner) + ") AND " + OfRecord(key));
    owner = OwnerOf(key);
  }
  if (owner != owner_) {
    return false;
  }
  held_.emplace(std::move(key), 1);
  return true;
}

void RecordLocks::Release(std::string_view table, std::int32_t id) {
  const auto found = held_.find(KeyOf(table, id));
  if (found == held_.end() || --found->second > 0) {
    return;
  }
  const Key key = found->first;
  held_.erase(found);
  Free(key);
}

void RecordLocks::Free(const Key& key) {
  data::Statements(database_).Execute("DELETE * FROM RecordLockTable WHERE (RLOwner=" + Literal(owner_) + ") AND " +
                                      OfRecord(key));
}

bool RecordLocks::HeldByAnother(std::string_view table, std::int32_t id) const {
  const std::string owner = OwnerOf(KeyOf(table, id));
  return !owner.empty() && owner != owner_ && MayBeAlive(ProcessOf(owner));
}

}  // namespace host
