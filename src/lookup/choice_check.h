#pragma once

#include <cstdint>

#include "session/screens.h"

namespace lookup {

// Whether a kind of list gives the chosen record; says why not. Throws session::DatabaseError.
using ChoiceCheck = bool (*)(const session::ScreenContext& context, const session::ListOptions& options,
                             std::int32_t id);

// The person heads a family still, or is the one whom the caller wants among the heads.
bool IsFamilyHead(const session::ScreenContext& context, const session::ListOptions& options, std::int32_t id);

}  // namespace lookup
