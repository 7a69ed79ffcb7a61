#pragma once

#include <ostream>
#include <string>

namespace host {

// Checks the plan links, holdings, coverages and families of all of a practice's offices, a line a fault, and mends
// them if asked to. False when faults are left. Throws session::DatabaseError.
bool RunCheck(const std::string& url, bool mend, std::ostream& output);

}  // namespace host
