#pragma once

#include "entry/dispatch.h"
#include "entry/editing_screen.h"
#include "entry/look_up_list.h"

namespace entry {

// The members of an instance, which must outlive what is returned.
Dispatch DispatchOf(EditingScreen& screen);
Dispatch DispatchOf(LookUpList& list);

}  // namespace entry
