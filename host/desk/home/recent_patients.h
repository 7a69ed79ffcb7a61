#pragma once

#include <cstdint>
#include <vector>

#include "session/session.h"

// The patients that a user opened last, kept with his options.
namespace host {

// The latest first.
std::vector<std::int32_t> RecentPatients(const session::Settings& settings);
// Where nothing can be written, the list stays as it was.
void RememberPatient(session::Settings& settings, std::int32_t patient);

}  // namespace host
