#pragma once

#include <cstdint>
#include <string>

#include "data/statements.h"

namespace recall {

// The cell phones and e-mail addresses that reminders reach a patient at: "Cell Phone: (555) 010-0100 (H) N.A. (W)"
// and, on a line of its own, "E-mail: " with his addresses at home and at work. Empty for a patient who is not there.
// Throws session::DatabaseError.
std::string ContactSummary(const data::Statements& statements, std::int32_t patient);

}  // namespace recall
