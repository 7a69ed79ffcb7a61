#pragma once

#include <memory>

#include "entry/dispatch.h"
#include "entry/editing_screen.h"
#include "entry/look_up_list.h"

namespace entry {

// The members of an instance, which must outlive what is returned.
Dispatch DispatchOf(EditingScreen& screen);
Dispatch DispatchOf(LookUpList& list);

// Adds the four slots of an instance as properties. "Nothing" empties one; `PV` else takes "Session" alone, the session
// given here, and the others any name.
void AddSlots(Dispatch& dispatch, IGlobal& object, const std::shared_ptr<session::Session>& session);

}  // namespace entry
