#pragma once

#include <functional>
#include <string>

#include "forms/user.h"
#include "session/session.h"

namespace editing {

// What a person is told when the connection was lost, without what failed.
std::string LossText(const session::DatabaseError& error);
// Asks whether what failed for that is to be tried again. Where a change may have been made already, Cancel is the
// default.
bool WantsToTryAgain(forms::User& user, const session::DatabaseError& error);

// The person is asked whenever the session's connection is lost and what was being done may be done again, for as long
// as it lives.
class AskedOnLoss {
 public:
  AskedOnLoss(session::Connection& connection, forms::User& user);
  // Without one nobody is asked.
  AskedOnLoss(session::Database& database, forms::User& user);
  AskedOnLoss(const AskedOnLoss&) = delete;
  AskedOnLoss& operator=(const AskedOnLoss&) = delete;
  ~AskedOnLoss();

 private:
  AskedOnLoss(session::Connection* connection, forms::User& user);

  session::Connection* connection_;
  std::function<bool(const session::DatabaseError& error)> before_;
};

}  // namespace editing
