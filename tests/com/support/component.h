#pragma once

#include <windows.h>

#include <oleauto.h>
#include <twSimpleEditScreens.h>

#include <string>

#include "automation/module.h"
#include "automation/server_library.h"
#include "automation/variant.h"

namespace test_support {

using automation::ComPtr;

// A TWSESC22.dll of a folder beside the test program.
class Component : public automation::ServerLibrary {
 public:
  explicit Component(const std::wstring& folder)
      : ServerLibrary(automation::ModuleFolder() + L"\\" + folder + L"\\TWSESC22.dll") {}
};

}  // namespace test_support
