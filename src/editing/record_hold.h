#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "session/session.h"

namespace editing {

// "ANN on FRONT-DESK".
std::string NameOf(const session::RecordHolder& holder);
// That he holds the record, and whether he seems to be at it.
std::string HeldText(const session::RecordHolder& holder);

// Holds a record against other users for as long as it lives. All throw session::DatabaseError.
class RecordHold {
 public:
  RecordHold(session::Suite& suite, std::string table, std::int32_t id)
      : suite_(suite), table_(std::move(table)), id_(id), holder_(suite.HoldRecord(table_, id)) {}
  RecordHold(const RecordHold&) = delete;
  RecordHold& operator=(const RecordHold&) = delete;
  ~RecordHold();

  std::int32_t Id() const { return id_; }
  // Another user, who holds it instead.
  const std::optional<session::RecordHolder>& Holder() const { return holder_; }
  // Once more; a silent holder loses the record.
  void TakeOver() { holder_ = suite_.TakeRecordOver(table_, id_); }
  // Before the record is written: throws Refusal, which names who holds it instead, or has taken it over since.
  void Require() const;

 private:
  session::Suite& suite_;
  std::string table_;
  std::int32_t id_;
  std::optional<session::RecordHolder> holder_;
};

}  // namespace editing
