#pragma once

#include <string>
#include <vector>

#include "session/connection.h"

namespace host {

// What an empty database is given before the first table: the schema, functions and an operator that keep the result of
// text that compares without regard to case such a text, and the functions of the tables' triggers.
std::vector<std::string> PostgresGround();

// Why a database's way with text is none for a practice; empty where it is one. By trying: its name tells little.
std::string WhyTextIsUnfit(session::Connection& connection);

}  // namespace host
