#pragma once

#include <cstdint>

#include "session/screens.h"

namespace editing {

// Takes a provider from the list of providers, from the right to do so to the closing message: another provider, whom
// the person chooses, takes over what is assigned to him, and he stays an employee. True when rows may have changed.
bool DeleteProvider(const session::ScreenContext& context, std::int32_t provider);

}  // namespace editing
