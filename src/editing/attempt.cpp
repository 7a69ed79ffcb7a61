#include "editing/attempt.h"

namespace editing {

void Report(forms::User& user, const session::DatabaseError& error) {
  user.Tell("The database could not carry out this operation.\r\n\r\n" + std::string(error.what()),
            std::string(forms::kSuiteTitle), forms::Icon::Critical);
}

RecordHold& RecordHold::operator=(RecordHold&& other) noexcept {
  std::swap(suite_, other.suite_);
  std::swap(table_, other.table_);
  std::swap(id_, other.id_);
  std::swap(held_, other.held_);
  return *this;
}

RecordHold::~RecordHold() {
  if (!held_) {
    return;
  }
  try {
    suite_->ReleaseRecord(table_, id_);
  } catch (const session::DatabaseError&) {  // the suite takes the locks of an ended session over
    held_ = false;
  }
}

std::string RightsRefusal(const session::Login& login, std::string_view what) {
  return "User [" + login.UserName() + "] does not have the rights to modify " + std::string(what) + ".";
}

}  // namespace editing
