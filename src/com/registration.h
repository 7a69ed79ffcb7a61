#pragma once

#include <windows.h>

namespace com {

// DllRegisterServer and DllUnregisterServer: the two classes and the type library.
HRESULT Register() noexcept;
HRESULT Unregister() noexcept;

}  // namespace com
