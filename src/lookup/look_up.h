#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lookup/list_events.h"
#include "session/screens.h"

namespace lookup {

// Shows a list, and tells the host the choice.
session::ListOutcome ShowLookUpList(const session::ScreenContext& context, session::LookUpListTypes type,
                                    const session::ListOptions& options, const ListEvents& events = {});

// The electronic payers; of the options the title and the payer to start on count.
session::ListOutcome ShowPayerList(const session::ScreenContext& context, const session::ListOptions& options);

// The codes of the chosen services; none when cancelled.
std::vector<std::string> ChooseServiceCodes(const session::ScreenContext& context);

// Nothing when cancelled. An empty title is the list's own.
std::optional<session::PickedText> ShowPickList(const session::ScreenContext& context, session::PickList list,
                                                std::string_view title);

}  // namespace lookup
