#include "console/roles_command.h"

#include <algorithm>

#include "database/office_group.h"
#include "database/postgres/postgres_schema.h"
#include "practice/practice.h"

namespace host {
namespace {

Practice OnServer(const std::string& url) {
  Practice practice(url);
  if (dynamic_cast<const PostgresSchema*>(practice.Database().schema) == nullptr) {
    throw session::DatabaseError("Only a practice on a PostgreSQL server has logins for desks.", {}, 0);
  }
  return practice;
}

}  // namespace

void RunRoles(const std::string& url, const DeskLogin& login, std::ostream& output) {
  const Practice practice = OnServer(url);
  const std::vector<std::int32_t> offices = practice.Offices();
  for (const int office : practice.Kind() == session::kOfficeScoped ? login.offices : std::vector<int>()) {
    if (std::ranges::find(offices, office) == offices.end()) {
      throw session::DatabaseError("The practice has no office " + std::to_string(office) + ".", {}, 0);
    }
  }
  bool searched_by_index = true;
  if (practice.Database().connect_in) {
    OpenOfficeGroup(url)->AdmitDesk(login.name, login.offices);
  } else {
    searched_by_index = AdmitDesk(practice.ConnectionIn(0), practice.Database().options, login);
  }
  output << login.name << " may work in the practice";
  if (practice.Kind() == session::kOfficeScoped) {
    const char* before = login.offices.size() == 1 ? ", in office " : ", in the offices ";
    for (const int office : login.offices) {
      output << before << office;
      before = ", ";
    }
  }
  output << ".\n";
  if (!searched_by_index) {
    output << "Searches read all rows until a superuser of the server has run this command.\n";
  }
}

void RemoveRoles(const std::string& url, const std::string& login, std::ostream& output) {
  const Practice practice = OnServer(url);
  const std::vector<std::string> through = practice.Database().connect_in ? OpenOfficeGroup(url)->RemoveDesk(login)
                                                                          : RemoveDesk(practice.ConnectionIn(0), login);
  output << login << " may no longer work in the practice.\n";
  for (const std::string& group : through) {
    output << "It still may as a member of " << group << ".\n";
  }
}

}  // namespace host
