#pragma once

#include <cstdint>
#include <vector>

#include "practice/demo_office.h"

namespace host::demo {

// The office's three locations, told apart by their colours; the first is the one that the practice was made with.
std::vector<std::int32_t> MakeLocations(DemoOffice& office);

}  // namespace host::demo
