#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "session/session.h"

namespace editing {

// Holds a record against other users for as long as it lives.
class RecordHold {
 public:
  // Throws session::DatabaseError.
  RecordHold(session::Suite& suite, std::string table, std::int32_t id)
      : suite_(suite), table_(std::move(table)), id_(id), held_(suite.HoldRecord(table_, id)) {}
  RecordHold(const RecordHold&) = delete;
  RecordHold& operator=(const RecordHold&) = delete;
  ~RecordHold();

  // False when another user holds it.
  bool Held() const { return held_; }

 private:
  session::Suite& suite_;
  std::string table_;
  std::int32_t id_;
  bool held_;
};

}  // namespace editing
