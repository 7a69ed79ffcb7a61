#pragma once

#include <cstdint>
#include <string>

#include "session/screens.h"

namespace lookup {

// The row that a list's Delete acts on.
struct DeletedRow {
  std::int32_t id = 0;
  std::string name;  // its name column
};

// What Delete does in a kind of list, from its questions to its statements. True when rows may have changed.
using DeleteFlow = bool (*)(const session::ScreenContext& context, const session::ListOptions& options,
                            const DeletedRow& row);

}  // namespace lookup
