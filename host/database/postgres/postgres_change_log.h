#pragma once

#include <string>
#include <vector>

#include "database/schema.h"

namespace host {

// Has the database put down what is written to the table in `kChangeLog`, while the writing session names an author
// (`practice.author`), at the moment of his clock (`practice.moment`).
std::vector<std::string> PostgresChangeLog(const Table& table, int version);

}  // namespace host
