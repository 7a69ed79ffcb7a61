#pragma once

#include "session/screens.h"

namespace host {

// The change log as a list, newest first. For supervisors: anybody else is told so.
void ShowChangeList(const session::ScreenContext& context);

}  // namespace host
