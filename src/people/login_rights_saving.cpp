#include "data/literal.h"
#include "people/login_name.h"
#include "people/login_rights.h"

namespace people {
namespace {

using data::Literal;

data::Sql Flag(bool set) {
  return Literal(set ? 1 : 0);
}

}  // namespace

void LoginRights::Save(const std::function<Login()>& write_login) {
  session::Transaction transaction(context_.session.Connection());
  const Login login = write_login();
  WriteName(login);
  WriteGrants(login);
  transaction.Commit();
  login_ = login;
  MarkWritten();
}

// Rights follow the name of their login.
void LoginRights::WriteName(const Login& login) const {
  if (login_.id != 0 && login.name != login_.name) {
    statements_.Execute("UPDATE PWATable SET PWAUseNam=" + Literal(login.name) + " WHERE " +
                        RightsOf(statements_, login_.id, login_.name));
  }
}

void LoginRights::WriteGrants(const Login& login) const {
  for (const auto& [location, grants] : grants_) {
    bool first_rights = false;
    for (std::size_t right = 0; right < grants.size(); ++right) {
      if (grants[right].now != grants[right].stored) {
        WriteGrant(login, location, right, grants[right]);
        first_rights = first_rights || !grants[right].has_row;
      }
    }
    if (first_rights) {
      LetInto(location, login);
    }
  }
}

void LoginRights::WriteGrant(const Login& login, std::int32_t location, std::size_t right, const Grant& grant) const {
  const std::string& keyword = catalogue_[right].keyword;
  if (!grant.has_row) {
    statements_.Insert("PWATable", {{"PWAPWMID", Literal(login.id)},
                                    {"PWAUseNam", Literal(login.name)},
                                    {"OffLocID", Literal(location)},
                                    {"PWAAreOfPro", Literal(keyword)},
                                    {"PWAReaFla", Flag(grant.now[0])},
                                    {"PWAWriFla", Flag(grant.now[1])},
                                    {"PWAFla1", Flag(grant.now[2])},
                                    {"PWAFla2", Flag(grant.now[3])}});
    return;
  }
  statements_.Execute("UPDATE PWATable SET PWAReaFla=" + Flag(grant.now[0]) + ", PWAWriFla=" + Flag(grant.now[1]) +
                      ", PWAFla1=" + Flag(grant.now[2]) + ", PWAFla2=" + Flag(grant.now[3]) +
                      ", PWAPWMID=" + Literal(login.id) + " WHERE (OffLocID=" + Literal(location) +
                      ") AND (PWAAreOfPro=" + Literal(keyword) + ") AND " +
                      RightsOf(statements_, login.id, login.name));
}

// Who gets his first rights at a location may use his login there, unless somebody has said otherwise.
void LoginRights::LetInto(std::int32_t location, const Login& login) const {
  const bool known =
      location == 0 || !statements_
                            .Select("SELECT ealID FROM ealTable WHERE (ealPWMID=" + Literal(login.id) +
                                    ") AND (ealOffLocID=" + Literal(location) + ")" + statements_.Office())
                            ->Eof();
  if (!known) {
    statements_.Insert(
        "ealTable", {{"ealPWMID", Literal(login.id)}, {"ealOffLocID", Literal(location)}, {"ealAccLoc", Literal(1)}});
  }
}

void LoginRights::MarkWritten() {
  for (auto& [location, grants] : grants_) {
    for (Grant& grant : grants) {
      grant.has_row = grant.has_row || grant.now != grant.stored;
      grant.stored = grant.now;
    }
  }
}

}  // namespace people
