#pragma once

#include <functional>
#include <string>

#include "database/database.h"

namespace host {

// Opens what is at a URL and nothing else.
using OpenAlone = std::function<PracticeDatabase(const std::string& url)>;

// Has a practice on a server of a group work in each office on that office's own server: a connection an office, made
// when it is first worked in. An office that moves is followed: the statement that finds it gone fails as on a lost
// connection does, and the next one outside a transaction runs at its new home. Before an office is entered, statements
// see the tables of all. A practice that belongs to no group, or is one office of it, stays as it is. Throws
// session::DatabaseError.
PracticeDatabase FollowOffices(PracticeDatabase database, const std::string& url, OpenAlone open);

}  // namespace host
