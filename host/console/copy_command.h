#pragma once

#include <ostream>
#include <string>

namespace host {

// Copies a practice to where there is none yet, or goes on with a copy that was broken off, and tells how far it is.
// False when it was ended by Ctrl+C. Throws session::DatabaseError.
bool RunCopy(const std::string& from, const std::string& to, std::ostream& output);

}  // namespace host
