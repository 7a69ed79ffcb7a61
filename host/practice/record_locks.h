#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>

#include "data/sql.h"
#include "practice/machine.h"
#include "session/session.h"

namespace host {

// The records that one session holds against all others on its practice, of this process or another; each in the
// office that the session was in. What a dead
// process held is free. Throws session::DatabaseError.
class RecordLocks {
 public:
  RecordLocks(session::Database& database, std::string user, const ProcessIdentity& process = ThisProcess());
  RecordLocks(const RecordLocks&) = delete;
  RecordLocks& operator=(const RecordLocks&) = delete;
  // Releases what is held.
  ~RecordLocks();

  // False when another session holds the record. Each hold needs its release. Tables are named without regard to case.
  bool Hold(std::string_view table, std::int32_t id);
  void Release(std::string_view table, std::int32_t id);
  bool HeldByAnother(std::string_view table, std::int32_t id) const;

 private:
  struct Key {
    std::int32_t office;
    std::string table;
    std::int32_t id;

    bool operator<(const Key& other) const {
      return std::tie(office, table, id) < std::tie(other.office, other.table, other.id);
    }
  };

  Key KeyOf(std::string_view table, std::int32_t id) const;  // in the office that the session is in
  data::Sql OfRecord(const Key& key) const;                  // the condition for its row
  std::string OwnerOf(const Key& key) const;                 // empty when it is free
  void Free(const Key& key);

  session::Database& database_;
  std::string user_;
  std::string owner_;  // this session of this process
  std::map<Key, int> held_;
};

}  // namespace host
