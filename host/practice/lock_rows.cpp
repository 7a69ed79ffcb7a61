#include "practice/lock_rows.h"

#include "data/literal.h"

namespace host {
namespace {

using data::Literal;
using data::Sql;

Sql Whole(std::int64_t number) {
  return data::ValueLiteral(session::Value(number));
}

Sql Seconds(std::chrono::sys_seconds moment) {
  return Whole(moment.time_since_epoch().count());
}

std::int64_t ToWhole(const session::Value& value) {
  const auto* number = std::get_if<std::int64_t>(&value);
  return number == nullptr ? 0 : *number;
}

Sql OfRecord(const LockedRecord& record) {
  return "(LocOffice=" + Literal(record.office) + ") AND (LocTable=" + Literal(record.table) +
         ") AND (LocRecID=" + Literal(record.id) + ")";
}

Sql OfSession(const std::string& session) {
  return "(LocSession=" + Literal(session) + ")";
}

// Whether a statement changed a row. It is read to its end, where the disk may still refuse it.
bool Changed(const std::unique_ptr<session::Recordset>& returned) {
  const bool changed = !returned->Eof();
  while (!returned->Eof()) {
    returned->MoveNext();
  }
  return changed;
}

}  // namespace

// Only what every engine understands alike: no statement is translated.
LockRows::LockRows(std::unique_ptr<session::Connection> connection) : connection_(std::move(connection)) {
  Run(
      Sql("CREATE TABLE IF NOT EXISTS LockTable (LocOffice int NOT NULL, LocTable varchar(40) NOT NULL, "
          "LocRecID int NOT NULL, LocSession varchar(40), LocUser varchar(40), LocMachine varchar(255), "
          "LocSystem varchar(255), LocProcess bigint, LocStarted bigint, LocBeat bigint, "
          "PRIMARY KEY (LocOffice, LocTable, LocRecID))"));
}

std::unique_ptr<session::Recordset> LockRows::Run(const Sql& statement) const {
  return connection_->Execute(statement.Text());
}

std::optional<RecordLock> LockRows::Take(const LockedRecord& record, const RecordLock& lock) {
  const std::lock_guard guard(one_at_a_time_);
  const Sql insert = "INSERT INTO LockTable VALUES (" + Literal(record.office) + ", " + Literal(record.table) + ", " +
                     Literal(record.id) + ", " + Literal(lock.session) + ", " + Literal(lock.user) + ", " +
                     Literal(lock.process.machine) + ", " + Literal(lock.process.system) + ", " +
                     Whole(lock.process.number) + ", " + Whole(lock.process.started) + ", " +
                     Seconds(lock.beat.value_or(std::chrono::sys_seconds())) +
                     ") ON CONFLICT DO NOTHING RETURNING LocRecID";
  while (!Changed(Run(insert))) {
    if (auto other = Read(record)) {
      return other;
    }
    // It was freed between the two.
  }
  return std::nullopt;
}

std::optional<RecordLock> LockRows::Find(const LockedRecord& record) {
  const std::lock_guard guard(one_at_a_time_);
  return Read(record);
}

std::optional<RecordLock> LockRows::Read(const LockedRecord& record) const {
  const auto row =
      Run("SELECT LocSession, LocUser, LocMachine, LocSystem, LocProcess, LocStarted, LocBeat FROM LockTable WHERE " +
          OfRecord(record));
  if (row->Eof()) {
    return std::nullopt;
  }
  return RecordLock{
      .session = session::ToText(row->Get(0)),
      .user = session::ToText(row->Get(1)),
      .process = {session::ToText(row->Get(2)), session::ToText(row->Get(3)), ToWhole(row->Get(4)),
                  ToWhole(row->Get(5))},
      .beat = std::chrono::sys_seconds(std::chrono::seconds(ToWhole(row->Get(6)))),
  };
}

bool LockRows::Renew(const LockedRecord& record, const std::string& session, std::chrono::sys_seconds now) {
  const std::lock_guard guard(one_at_a_time_);
  return Changed(Run("UPDATE LockTable SET LocBeat=" + Seconds(now) + " WHERE " + OfSession(session) + " AND " +
                     OfRecord(record) + " RETURNING LocRecID"));
}

void LockRows::RenewAll(const std::string& session, std::chrono::sys_seconds now) {
  const std::lock_guard guard(one_at_a_time_);
  Run("UPDATE LockTable SET LocBeat=" + Seconds(now) + " WHERE " + OfSession(session));
}

void LockRows::Free(const LockedRecord& record, const std::string& session) {
  const std::lock_guard guard(one_at_a_time_);
  Run("DELETE FROM LockTable WHERE " + OfSession(session) + " AND " + OfRecord(record));
}

void LockRows::FreeAll(const std::string& session) {
  const std::lock_guard guard(one_at_a_time_);
  Run("DELETE FROM LockTable WHERE " + OfSession(session));
}

}  // namespace host
