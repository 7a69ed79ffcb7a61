#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "forms/user.h"
#include "session/session.h"

namespace editing {

// Tells the person what the database refused.
void Report(forms::User& user, const session::DatabaseError& error);

// Runs one operation of a screen; a failed statement ends it and is reported. False when it failed.
template <typename Operation>
bool Attempt(forms::User& user, Operation operation) {
  try {
    operation();
    return true;
  } catch (const session::DatabaseError& error) {
    Report(user, error);
    return false;
  }
}

// Holds a record against other users for as long as it lives.
class RecordHold {
 public:
  RecordHold() = default;
  // Throws session::DatabaseError.
  RecordHold(session::Suite& suite, std::string table, std::int32_t id)
      : suite_(&suite), table_(std::move(table)), id_(id), held_(suite.HoldRecord(table_, id)) {}
  RecordHold(RecordHold&& other) noexcept { *this = std::move(other); }
  RecordHold& operator=(RecordHold&& other) noexcept;
  RecordHold(const RecordHold&) = delete;
  RecordHold& operator=(const RecordHold&) = delete;
  ~RecordHold();

  // False when another user holds it.
  bool Held() const { return held_; }

 private:
  session::Suite* suite_ = nullptr;
  std::string table_;
  std::int32_t id_ = 0;
  bool held_ = false;
};

// "User [Ann] does not have the rights to modify provider names."
std::string RightsRefusal(const session::Login& login, std::string_view what);

}  // namespace editing
