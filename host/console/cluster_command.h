#pragma once

#include <istream>
#include <ostream>

namespace host {

// Starts a PostgreSQL server for tests, prints its URL and ends with the input, or when it is told to by a signal. The
// lines "stop" and "start" stop it, as by a crash, and start it again. Throws std::runtime_error where none can be
// started.
void RunCluster(std::istream& input, std::ostream& output);

}  // namespace host
