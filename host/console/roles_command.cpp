#include "console/roles_command.h"

#include "database/database.h"
#include "database/postgres/postgres_schema.h"

namespace host {

void RunRoles(const std::string& url, const DeskLogin& login, std::ostream& output) {
  const PracticeDatabase database = OpenDatabase(url);
  if (dynamic_cast<const PostgresSchema*>(database.schema) == nullptr) {
    throw session::DatabaseError("Only a practice on a PostgreSQL server has logins for desks.", {}, 0);
  }
  const bool searched_by_index = AdmitDesk(*database.connection, database.options, login);
  output << login.name << " may work in the practice";
  if (database.options.kind == 7) {
    const char* before = login.offices.size() == 1 ? ", in office " : ", in the offices ";
    for (const int office : login.offices) {
      output << before << office;
      before = ", ";
    }
  }
  output << ".\n";
  if (!searched_by_index) {
    output << "Searches by name read all rows until a superuser of the server has run this command.\n";
  }
}

}  // namespace host
