#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "database/office_group.h"
#include "practice/practice.h"

namespace host {

// Makes an office at a server of the group, with its defaults, one location and what `fill` adds, and takes it into the
// group; all of it or nothing. Throws session::DatabaseError.
void AddOffice(OfficeGroup& group, std::int32_t office, const std::string& server,
               const std::function<void(Practice& practice)>& fill = {});

}  // namespace host
