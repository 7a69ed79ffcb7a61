#include "practice/advisory_locks.h"

#include <algorithm>

#include "forms/text.h"

namespace host {
namespace {

// 64 bits over office, table and ID (FNV-1a, mixed once more). That two of a thousand records that are held at a time
// share a key has a chance of less than one in ten million million.
std::uint64_t KeyOf(const LockedRecord& record) {
  std::uint64_t key = 0xcbf29ce484222325;
  for (const char byte : std::to_string(record.office) + ' ' + record.table + ' ' + std::to_string(record.id)) {
    key = (key ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
  }
  key = (key ^ (key >> 33U)) * 0xff51afd7ed558ccd;
  return key ^ (key >> 33U);
}

std::string Number(const LockedRecord& record) {
  return std::to_string(static_cast<std::int64_t>(KeyOf(record)));
}

// The rows of pg_locks that are the record's.
std::string Granted(const LockedRecord& record) {
  const std::uint64_t key = KeyOf(record);
  return "pg_locks l WHERE l.locktype='advisory' AND l.granted AND l.objsubid=1 AND l.classid=" +
         std::to_string(key >> 32U) + "::bigint::oid AND l.objid=" + std::to_string(key & 0xffffffffU) +
         "::bigint::oid AND l.database=(SELECT oid FROM pg_database WHERE datname=current_database())";
}

// The first value of what a statement gives; nothing without a row. A connection that the server has ended is made anew
// once: it holds nothing then.
std::optional<session::Value> Ask(session::Connection& connection, const std::string& statement) {
  const auto ask = [&]() -> std::optional<session::Value> {
    const auto rows = connection.Execute(statement);
    return rows->Eof() ? std::nullopt : std::optional(rows->Get(0));
  };
  try {
    return ask();
  } catch (const session::DatabaseError& error) {
    if (!error.ConnectionLost()) {
      throw;
    }
    return ask();
  }
}

// Which of the server's processes answers.
constexpr const char* kBackend = "pg_catalog.concat(pg_backend_pid(), ' ', pg_postmaster_start_time())";

// The process that holds the record from now on, or nothing where somebody else holds it. A machine that was switched
// off does not end its connection: the server notices by asking it.
std::optional<std::string> TryLock(session::Connection& connection, const LockedRecord& record) {
  const auto backend = Ask(connection,
                           "SET tcp_keepalives_idle=20; SET tcp_keepalives_interval=10; SET tcp_keepalives_count=4; "
                           "SELECT " +
                               std::string(kBackend) + " WHERE pg_try_advisory_lock(" + Number(record) + ")");
  return backend ? std::optional(session::ToText(*backend)) : std::nullopt;
}

// The beginning of a text as printable ASCII without '%' and '@', of at most so many bytes.
std::string Encoded(std::string_view text, std::size_t most) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string encoded;
  for (std::size_t end = 0; end < text.size();) {
    std::string character;
    do {
      const auto byte = static_cast<unsigned char>(text[end]);
      const bool plain = byte > ' ' && byte < 0x7f && byte != '%' && byte != '@';
      character += plain ? std::string(1, text[end]) : std::string{'%', kDigits[byte >> 4U], kDigits[byte & 15U]};
    } while (++end < text.size() && (static_cast<unsigned char>(text[end]) & 0xc0U) == 0x80);
    if (encoded.size() + character.size() > most) {
      break;
    }
    encoded += character;
  }
  return encoded;
}

std::string Decoded(std::string_view text) {
  const auto digit = [](char letter) { return letter <= '9' ? letter - '0' : letter - 'A' + 10; };
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size()) {
      decoded += static_cast<char>(digit(text[i + 1]) * 16 + digit(text[i + 2]));
      i += 2;
    } else {
      decoded += text[i];
    }
  }
  return decoded;
}

}  // namespace

std::string HolderName(std::string_view user, std::string_view machine) {
  constexpr std::size_t kMost = 63;
  constexpr std::size_t kMostOfUser = 40;
  std::string name = Encoded(user, kMostOfUser) + "@";
  return name + Encoded(machine, kMost - name.size());
}

std::pair<std::string, std::string> UserAndMachine(std::string_view name) {
  const std::size_t at = name.find('@');
  if (at == std::string_view::npos) {
    return {};
  }
  return {Decoded(name.substr(0, at)), Decoded(name.substr(at + 1))};
}

AdvisoryLocks::Holder& AdvisoryLocks::HolderFor(const RecordLock& lock) {
  const auto key = std::pair(lock.session, lock.user);
  auto found = holders_.find(key);
  if (found == holders_.end()) {
    found = holders_.emplace(key, Holder{connect_(HolderName(lock.user, lock.process.machine)), lock, {}}).first;
    found->second.lock.beat.reset();
  }
  return found->second;
}

AdvisoryLocks::Holder* AdvisoryLocks::HolderOf(const LockedRecord& record) {
  const auto found =
      std::ranges::find_if(holders_, [&](const auto& entry) { return entry.second.held.contains(record); });
  return found == holders_.end() ? nullptr : &found->second;
}

std::optional<RecordLock> AdvisoryLocks::Take(const LockedRecord& record, const RecordLock& lock) {
  const std::lock_guard guard(one_at_a_time_);
  while (true) {
    if (Holder* other = HolderOf(record); other != nullptr && Renew(record, *other)) {
      return other->lock;
    }
    Holder& holder = HolderFor(lock);
    if (auto backend = TryLock(*holder.connection, record)) {
      holder.held[record] = std::move(*backend);
      return std::nullopt;
    }
    if (auto other = Read(record)) {
      return other;
    }
    // It was freed between the two.
  }
}

std::optional<RecordLock> AdvisoryLocks::Find(const LockedRecord& record) {
  const std::lock_guard guard(one_at_a_time_);
  if (Holder* holder = HolderOf(record); holder != nullptr && Renew(record, *holder)) {
    return holder->lock;
  }
  return Read(record);
}

// As the server sees it.
std::optional<RecordLock> AdvisoryLocks::Read(const LockedRecord& record) {
  if (looking_ == nullptr) {
    looking_ = connect_("practice");
  }
  const auto name = Ask(
      *looking_, "SELECT (SELECT application_name FROM pg_stat_activity a WHERE a.pid=l.pid) FROM " + Granted(record));
  if (!name) {
    return std::nullopt;
  }
  RecordLock lock;
  std::tie(lock.user, lock.process.machine) = UserAndMachine(session::ToText(*name));
  return lock;
}

// What a process held fell with it. It is taken again; what somebody else has taken meanwhile is lost for good.
bool AdvisoryLocks::Renew(const LockedRecord& record, Holder& holder) {
  std::string& backend = holder.held.at(record);
  const auto current = Ask(*holder.connection, "SELECT " + std::string(kBackend));
  if (session::ToText(*current) == backend) {
    return true;
  }
  if (auto another = TryLock(*holder.connection, record)) {
    backend = std::move(*another);
    return true;
  }
  holder.held.erase(record);
  return false;
}

bool AdvisoryLocks::Renew(const LockedRecord& record, const std::string& session, std::chrono::sys_seconds /*now*/) {
  const std::lock_guard guard(one_at_a_time_);
  Holder* holder = HolderOf(record);
  return holder != nullptr && holder->lock.session == session && Renew(record, *holder);
}

void AdvisoryLocks::RenewAll(const std::string& session, std::chrono::sys_seconds /*now*/) {
  const std::lock_guard guard(one_at_a_time_);
  for (auto& [key, holder] : holders_) {
    if (key.first == session) {
      for (const auto& [record, backend] : std::map(holder.held)) {
        Renew(record, holder);
      }
    }
  }
}

void AdvisoryLocks::Free(const LockedRecord& record, const std::string& session) {
  const std::lock_guard guard(one_at_a_time_);
  Holder* holder = HolderOf(record);
  if (holder != nullptr && holder->lock.session == session) {
    holder->held.erase(record);
    Ask(*holder->connection, "SELECT CASE WHEN pg_advisory_unlock(" + Number(record) + ") THEN 1 ELSE 0 END");
  }
}

void AdvisoryLocks::FreeAll(const std::string& session) {
  const std::lock_guard guard(one_at_a_time_);
  // By word, as a server notices the end of a connection a moment later.
  for (auto holder = holders_.begin(); holder != holders_.end();) {
    if (holder->first.first != session) {
      ++holder;
      continue;
    }
    const auto connection = std::move(holder->second.connection);
    holder = holders_.erase(holder);
    connection->Execute("SELECT pg_advisory_unlock_all()");
  }
}

}  // namespace host
