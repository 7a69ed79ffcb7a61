#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "session/screens.h"

namespace insurance {

// Takes a plan from the employer who offers it: its subscribers lose it, or another plan takes its place. `name` is
// what the person knows it by; `before_replacing` runs before he chooses the plan that takes its place. False when
// nothing was changed.
bool RemovePlanLink(const session::ScreenContext& context, std::int32_t link, const std::string& name,
                    const std::function<void()>& before_replacing);

}  // namespace insurance
