#pragma once

#include <ostream>
#include <string>

#include "database/postgres/postgres_roles.h"

namespace host {

// Has a login of the server that keeps the practice work in it as desks do, and says so. `url` names the owner of its
// tables. Throws session::DatabaseError.
void RunRoles(const std::string& url, const DeskLogin& login, std::ostream& output);
// Takes a login out, and says so.
void RemoveRoles(const std::string& url, const std::string& login, std::ostream& output);

}  // namespace host
