#pragma once

#include <windows.h>

#include <oaidl.h>

#include "automation/com_ptr.h"

namespace com {

// Of the type library that comes with the component. Throw automation::ComError.
automation::ComPtr<ITypeLib> TypeLibrary();
automation::ComPtr<ITypeInfo> TypeInfoOf(const GUID& id);

}  // namespace com
