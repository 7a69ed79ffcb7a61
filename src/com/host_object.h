#pragma once

#include <windows.h>

#include <oaidl.h>

#include "entry/global_slots.h"

namespace com {

// An object of the host as the component keeps it: it is released with the last copy.
entry::HostObject KeepObject(IDispatch* object);
// A counted reference for a caller; nullptr for none.
IDispatch* GiveObject(const entry::HostObject& object);
// The window that the object tells by its `hwnd`; nullptr when it tells none.
HWND WindowOf(const entry::HostObject& object);

}  // namespace com
