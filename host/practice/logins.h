#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "forms/dates.h"
#include "practice/practice.h"
#include "session/session.h"

namespace host {

using session::kSupervisorRight;

// Every right an office can give, in the order of the rights grid.
const std::vector<session::Right>& RightsCatalogue();

// Who sits at the keyboard. A supervisor has every right.
class LoginRights {
 public:
  LoginRights() = default;
  explicit LoginRights(std::string name, bool supervisor = false) : name_(std::move(name)) {
    if (supervisor) {
      Grant(kSupervisorRight);
    }
  }

  const std::string& Name() const { return name_; }
  bool Supervisor() const { return keywords_.contains(kSupervisorRight); }
  // Keywords are compared without regard to case.
  // A supervisor has every right but those that were taken from him.
  bool Has(std::string_view keyword) const {
    return keywords_.contains(keyword) || (Supervisor() && !revoked_.contains(keyword));
  }
  void Grant(std::string_view keyword);
  void Revoke(std::string_view keyword);

 private:
  struct IgnoringCase {
    using is_transparent = void;
    bool operator()(std::string_view left, std::string_view right) const;
  };

  std::string name_;
  std::set<std::string, IgnoringCase> keywords_;
  std::set<std::string, IgnoringCase> revoked_;
};

struct LoginResult {
  std::int32_t login = 0;     // PWMID
  std::int32_t person = 0;    // the employee's pID, 0 when the login stands for nobody
  std::int32_t location = 0;  // the location it opens in
  LoginRights rights;         // at that location
};

// How much work one guess at a password costs. Tests take the least.
enum class HashCost { Interactive, Least };

// At most 128 characters, salt and cost included.
std::string HashPassword(std::string_view password, HashCost cost = HashCost::Interactive);
bool PasswordMatches(std::string_view hash, std::string_view password);

// Whether anybody has one in the office.
bool HasLogins(session::Database& database);

struct NewLogin {
  std::string name;
  std::string password_hash;
  std::int32_t person = 0;
  std::vector<std::int32_t> locations;  // the first is the primary one; rights are the same at all of them
  std::vector<std::string> rights;
};
// The new PWMID.
std::int32_t AddLogin(session::Database& database, const NewLogin& login);
// A supervisor's login at every location of the office. False, and nothing is done, when somebody has a login there
// by now.
bool AddFirstLogin(Practice& practice, std::int32_t office, const std::string& name, const std::string& password_hash);
void SetPassword(session::Database& database, std::int32_t login, std::string_view hash);

struct LoginAnswer {
  std::optional<LoginResult> login;  // nothing when it is refused
  std::chrono::seconds wait{0};      // until when no try of this name is looked at

  explicit operator bool() const { return login.has_value(); }
};

// Opens a session's login at a location, 0 for its primary one. Refused when name and password do not belong together
// or the location is not granted to the login; after some refusals for a growing time, whatever the password is. An
// unknown name takes as long as a wrong password, and waits as long. Each login and refusal stands in the change log,
// but for those of a practice that can only be looked at.
LoginAnswer LogIn(session::Database& database, std::string_view name, std::string_view password, forms::DateTime now,
                  std::int32_t location = 0);

}  // namespace host
