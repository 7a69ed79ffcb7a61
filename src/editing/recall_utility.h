#pragma once

#include <cstdint>

#include "session/session.h"

namespace editing {

// Starts the suite's recall utility on a recall: it works out the due dates of that recall's patients. False when it
// could not be started. Throws session::DatabaseError.
bool StartRecallUtility(session::Machine& machine, std::int32_t recall);

}  // namespace editing
