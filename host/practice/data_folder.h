#pragma once

#include <string>

namespace host {

// Where a practice's letters, templates and outbox lie. Of a database in a file: beside it. Of one on a server: in a
// folder of `own_folder`, which is the person's, with the name of server, port and database. `own_folder` itself for an
// empty URL and a practice in memory. Throws session::DatabaseError for what is no URL.
std::string DataFolderOf(const std::string& url, const std::string& own_folder);

}  // namespace host
