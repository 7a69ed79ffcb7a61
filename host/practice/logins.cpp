#include "practice/logins.h"

#include <sodium.h>

#include <algorithm>
#include <array>
#include <new>
#include <stdexcept>

#include "data/literal.h"
#include "data/statements.h"
#include "forms/text.h"
#include "practice/change_log.h"

namespace host {
namespace {

using data::Literal;

void StartSodium() {
  if (sodium_init() < 0) {
    throw std::runtime_error("The password library cannot be started.");
  }
}

// The first refusals cost nothing but the work of a guess; each further one doubles the wait, up to this.
constexpr int kFreeRefusals = 3;
constexpr int kMostDoublings = 8;  // 256 seconds

std::chrono::seconds WaitOf(session::Database& database, std::string_view logged_name, forms::DateTime now) {
  const Refusals refusals = RefusalsOf(database, logged_name);
  if (refusals.count < kFreeRefusals) {
    return std::chrono::seconds(0);
  }
  const std::chrono::seconds whole(1 << std::min(refusals.count - kFreeRefusals, kMostDoublings));
  // A clock that was set back makes nobody wait for longer.
  return std::clamp(refusals.last + whole - now, std::chrono::seconds(0), whole);
}

// A login that the name and the password belong to.
struct Candidate {
  std::int32_t login = 0;
  std::int32_t person = 0;
  std::int32_t primary_location = 0;
  std::string name;
};

// What stands for an unknown name: it may be a password that was typed into the wrong field, so that no more of it is
// kept than tells most names apart.
std::string MarkOf(std::string_view unknown_name) {
  StartSodium();
  const std::string folded = forms::ToUpper(unknown_name);
  std::array<unsigned char, crypto_generichash_BYTES_MIN> hash{};
  crypto_generichash(hash.data(), hash.size(), reinterpret_cast<const unsigned char*>(folded.data()), folded.size(),
                     nullptr, 0);
  return "unknown name #" + std::to_string((hash[0] << 8U) | hash[1]);
}

std::string LoggedName(const data::Statements& statements, std::string_view name) {
  const std::string known = session::ToText(statements.SelectValue(
      "SELECT PWMUseNam FROM PWMTable WHERE (PWMUseNam=" + Literal(name) + ")" + statements.Office()));
  return known.empty() ? MarkOf(name) : known;
}

// Namesakes are told apart by their passwords. Where there is no such name, a guess at somebody's password takes the
// time that one at his own would.
std::optional<Candidate> CandidateOf(const data::Statements& statements, std::string_view name,
                                     std::string_view password) {
  const auto logins = statements.Select(
      "SELECT PWMID, PWMUseNam, PWMPasWor, PWMPid, OffLocID FROM PWMTable WHERE (PWMUseNam=" + Literal(name) + ")" +
      statements.Office());
  if (logins->Eof()) {
    PasswordMatches(session::ToText(statements.SelectValue("SELECT TOP 1 PWMPasWor FROM PWMTable WHERE (PWMID>0)" +
                                                           statements.Office())),
                    password);
  }
  for (; !logins->Eof(); logins->MoveNext()) {
    if (PasswordMatches(session::ToText(logins->Get(2)), password)) {
      return Candidate{session::ToId(logins->Get(0)), session::ToId(logins->Get(3)), session::ToId(logins->Get(4)),
                       session::ToText(logins->Get(1))};
    }
  }
  return std::nullopt;
}

// The primary location is granted always.
bool Grants(const data::Statements& statements, const Candidate& login, std::int32_t location) {
  return location == login.primary_location ||
         !statements
              .Select("SELECT ealID FROM ealTable WHERE (ealPWMID=" + Literal(login.login) +
                      ") AND (ealOffLocID=" + Literal(location) + ") AND (ealAccLoc<>0)" + statements.Office())
              ->Eof();
}

LoginRights RightsAt(const data::Statements& statements, const Candidate& login, std::int32_t location) {
  LoginRights rights(login.name);
  const auto granted =
      statements.Select("SELECT PWAAreOfPro FROM PWATable WHERE (PWAPWMID=" + Literal(login.login) +
                        ") AND (OffLocID=" + Literal(location) + ") AND (PWAWriFla<>0)" + statements.Office());
  for (; !granted->Eof(); granted->MoveNext()) {
    rights.Grant(session::ToText(granted->Get(0)));
  }
  return rights;
}

}  // namespace

const std::vector<session::Right>& RightsCatalogue() {
  using enum session::Product;
  static const std::vector<session::Right> kRights = {
      {std::string(kSupervisorRight), "Supervisor Rights"},
      {"EDIT-EMP-INS", "Edit employers and insurance companies", Practice, true},
      {"LINK-EMP-INS", "Link employers and insurance plans", Practice, true},
      {"Change-Ins-Plan-Detail", "Change insurance plan details", Practice, true},
      {"DELETE-PATIENT", "Delete patients"},
      {"DELETE-PROVIDER", "Delete providers"},
      {"CHANGE-PRO-NAME", "Modify provider names"},
      {"CHANGE-REF-NAME", "Modify referral names"},
      {"CHANGE-STA-DAT", "Change statement dates"},
      {"CC_CAN_ADD_NEW", "Add credit cards"},
      {"ZEP-CLO-INO", "Clock in and out", TimeClock, true},
      {"ZEP-EDI-TIM", "Edit clock times", TimeClock},
      {"ZEP-EDI-ABS", "Edit absences", TimeClock},
      {"ZEP-PRI-TIM", "Print time sheets", TimeClock},
  };
  return kRights;
}

bool LoginRights::IgnoringCase::operator()(std::string_view left, std::string_view right) const {
  return forms::ToUpper(left) < forms::ToUpper(right);
}

void LoginRights::Grant(std::string_view keyword) {
  revoked_.erase(std::string(keyword));
  keywords_.emplace(keyword);
}

void LoginRights::Revoke(std::string_view keyword) {
  keywords_.erase(std::string(keyword));
  revoked_.emplace(keyword);
}

std::string HashPassword(std::string_view password, HashCost cost) {
  StartSodium();
  const bool least = cost == HashCost::Least;
  std::array<char, crypto_pwhash_STRBYTES> hash{};
  if (crypto_pwhash_str(hash.data(), password.data(), password.size(),
                        least ? crypto_pwhash_OPSLIMIT_MIN : crypto_pwhash_OPSLIMIT_INTERACTIVE,
                        least ? crypto_pwhash_MEMLIMIT_MIN : crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0) {
    throw std::bad_alloc();  // it fails only for want of memory
  }
  return hash.data();
}

bool PasswordMatches(std::string_view hash, std::string_view password) {
  StartSodium();
  return crypto_pwhash_str_verify(std::string(hash).c_str(), password.data(), password.size()) == 0;
}

bool HasLogins(session::Database& database) {
  const data::Statements statements(database);
  return !statements.Select("SELECT TOP 1 PWMID FROM PWMTable WHERE (PWMID>0)" + statements.Office())->Eof();
}

std::int32_t AddLogin(session::Database& database, const NewLogin& login) {
  const data::Statements statements(database);
  // The index takes letters beyond ASCII for others in another case; a login compares them as the same.
  if (!statements
           .Select("SELECT PWMID FROM PWMTable WHERE (PWMUseNam=" + Literal(login.name) + ")" + statements.Office())
           ->Eof()) {
    throw session::DatabaseError("There is a login of this name already.", {}, 0);
  }
  const std::int32_t primary = login.locations.empty() ? 0 : login.locations.front();
  const std::int32_t id = statements.Insert("PWMTable", {{"PWMUseNam", Literal(login.name)},
                                                         {"PWMPasWor", Literal(login.password_hash)},
                                                         {"PWMPid", Literal(login.person)},
                                                         {"OffLocID", Literal(primary)}});
  for (const std::int32_t location : login.locations) {
    statements.Insert("ealTable",
                      {{"ealPWMID", Literal(id)}, {"ealOffLocID", Literal(location)}, {"ealAccLoc", Literal(1)}});
    for (const auto& right : login.rights) {
      statements.Insert("PWATable", {{"PWAPWMID", Literal(id)},
                                     {"PWAUseNam", Literal(login.name)},
                                     {"OffLocID", Literal(location)},
                                     {"PWAAreOfPro", Literal(right)},
                                     {"PWAReaFla", Literal(1)},
                                     {"PWAWriFla", Literal(1)},
                                     {"PWAFla1", Literal(1)},
                                     {"PWAFla2", Literal(1)}});
    }
  }
  return id;
}

bool AddFirstLogin(Practice& practice, std::int32_t office, const std::string& name, const std::string& password_hash) {
  OfficeDatabase database(practice, office);
  const data::Statements statements(database);
  session::Transaction transaction(database.Connection());
  // Whoever makes the first login at another desk has done so by then.
  if (const std::string lock = practice.Database().schema->Lock(); !lock.empty()) {
    database.Connection().Execute(lock);
  }
  if (HasLogins(database)) {
    return false;
  }
  NewLogin login;
  login.name = name;
  login.password_hash = password_hash;
  login.rights = {std::string(kSupervisorRight)};
  for (const auto rows = statements.Select("SELECT OffLocID FROM OffLocTable WHERE (OffLocID>0)" + statements.Office() +
                                           " ORDER BY OffLocID");
       !rows->Eof(); rows->MoveNext()) {
    login.locations.push_back(session::ToId(rows->Get(0)));
  }
  AddLogin(database, login);
  transaction.Commit();
  return true;
}

void SetPassword(session::Database& database, std::int32_t login, std::string_view hash) {
  data::Statements(database).Update("PWMTable", {{"PWMPasWor", Literal(hash)}}, "PWMID", login);
}

LoginAnswer LogIn(session::Database& database, std::string_view name, std::string_view password, forms::DateTime now,
                  std::int32_t location) {
  const data::Statements statements(database);
  const std::string logged_name = LoggedName(statements, name);
  if (const auto wait = WaitOf(database, logged_name, now); wait.count() > 0) {
    return {std::nullopt, wait};
  }
  const std::optional<Candidate> login = CandidateOf(statements, name, password);
  const std::int32_t opened = login && location == 0 ? login->primary_location : location;
  if (!login || !Grants(statements, *login, opened)) {
    LogTry(database, {.who = logged_name, .when = now});
    return {std::nullopt, WaitOf(database, logged_name, now)};
  }
  LogTry(database, {.who = logged_name, .login = login->login, .when = now});
  return {LoginResult{login->login, login->person, opened, RightsAt(statements, *login, opened)}, {}};
}

}  // namespace host
