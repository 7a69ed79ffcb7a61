#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "lookup/list_events.h"
#include "session/screens.h"

namespace lookup {

// Shows a list, one of `session::LookUpListTypes`, and tells the host the choice. Any other type shows nothing.
session::ListOutcome ShowLookUpList(const session::ScreenContext& context, std::int32_t type,
                                    const session::ListOptions& options, const ListEvents& events = {});

// Nothing when cancelled. An empty title is the list's own.
std::optional<session::PickedText> ShowPickList(const session::ScreenContext& context, session::PickList list,
                                                std::string_view title);

}  // namespace lookup
