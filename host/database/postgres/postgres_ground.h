#pragma once

#include <string>
#include <vector>

namespace host {

// What an empty database is given before the first table: the schema, functions and an operator that keep the result of
// text that compares without regard to case such a text, and the functions of the tables' triggers.
std::vector<std::string> PostgresGround();

}  // namespace host
