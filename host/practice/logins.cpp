#include "practice/logins.h"

#include <sodium.h>

#include <algorithm>
#include <array>
#include <new>
#include <stdexcept>

#include "data/literal.h"
#include "data/statements.h"
#include "forms/text.h"

namespace host {
namespace {

using data::Literal;

constexpr std::array kRights = {
    Right{kSupervisorRight, "Supervisor Rights"},
    Right{"EDIT-EMP-INS", "Edit employers and insurance companies", true},
    Right{"LINK-EMP-INS", "Link employers and insurance plans", true},
    Right{"Change-Ins-Plan-Detail", "Change insurance plan details", true},
    Right{"DELETE-PATIENT", "Delete patients"},
    Right{"DELETE-PROVIDER", "Delete providers"},
    Right{"CHANGE-PRO-NAME", "Modify provider names"},
    Right{"CHANGE-REF-NAME", "Modify referral names"},
    Right{"CC_CAN_ADD_NEW", "Add credit cards"},
};

void StartSodium() {
  if (sodium_init() < 0) {
    throw std::runtime_error("The password library cannot be started.");
  }
}

}  // namespace

std::span<const Right> RightsCatalogue() {
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

std::int32_t AddLogin(session::Database& database, const NewLogin& login) {
  const data::Statements statements(database);
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

void SetPassword(session::Database& database, std::int32_t login, std::string_view hash) {
  data::Statements(database).Update("PWMTable", {{"PWMPasWor", Literal(hash)}}, "PWMID", login);
}

std::optional<LoginResult> LogIn(session::Database& database, std::string_view name, std::string_view password,
                                 std::int32_t location) {
  const data::Statements statements(database);
  const auto login = statements.Select(
      "SELECT PWMID, PWMUseNam, PWMPasWor, PWMPid, OffLocID FROM PWMTable WHERE (PWMUseNam=" + Literal(name) + ")" +
      statements.Office());
  if (login->Eof() || !PasswordMatches(session::ToText(login->Get(2)), password)) {
    return std::nullopt;
  }
  const std::int32_t id = session::ToId(login->Get(0));
  const std::int32_t primary = session::ToId(login->Get(4));
  const std::int32_t opened = location == 0 ? primary : location;
  if (opened != primary &&
      statements
          .Select("SELECT ealID FROM ealTable WHERE (ealPWMID=" + Literal(id) +
                  ") AND (ealOffLocID=" + Literal(opened) + ") AND (ealAccLoc<>0)" + statements.Office())
          ->Eof()) {
    return std::nullopt;
  }
  LoginResult result{id, session::ToId(login->Get(3)), opened, LoginRights(session::ToText(login->Get(1)))};
  const auto rights =
      statements.Select("SELECT PWAAreOfPro FROM PWATable WHERE (PWAPWMID=" + Literal(id) +
                        ") AND (OffLocID=" + Literal(opened) + ") AND (PWAWriFla<>0)" + statements.Office());
  for (; !rights->Eof(); rights->MoveNext()) {
    result.rights.Grant(session::ToText(rights->Get(0)));
  }
  return result;
}

}  // namespace host
