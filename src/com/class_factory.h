#pragma once

#include <windows.h>

namespace com {

// The factory of one of the public classes, CLASS_E_CLASSNOTAVAILABLE for any other.
HRESULT GetClassFactory(REFCLSID class_id, REFIID interface_id, void** factory);

}  // namespace com
