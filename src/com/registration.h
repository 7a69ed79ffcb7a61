#pragma once

#include <windows.h>

namespace com {

// Writes both classes and the type library where COM looks for them, for the library that this code is linked into:
// for the machine where that can be written, otherwise for the person who is logged in.
HRESULT Register() noexcept;
// Takes all of it away, for the machine and for the person.
HRESULT Unregister() noexcept;

}  // namespace com
