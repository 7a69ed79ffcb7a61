#pragma once

#include <cstdint>
#include <string>

#include "session/screens.h"

namespace editing {

// Deletes a recall master, from the locks that stand against it to the start of the recall utility, which clears its
// patients. `name` is what the list calls it. True when rows may have changed.
bool DeleteRecallMaster(const session::ScreenContext& context, std::int32_t recall, const std::string& name);

}  // namespace editing
