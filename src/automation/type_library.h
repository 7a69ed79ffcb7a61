#pragma once

#include <windows.h>

#include <oaidl.h>

#include "automation/com_ptr.h"

namespace automation {

// Of the type library in the file of the library or program. Throw ComError.
ComPtr<ITypeLib> TypeLibrary();
ComPtr<ITypeInfo> TypeInfoOf(const GUID& id);

}  // namespace automation
