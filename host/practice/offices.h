#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "database/office_group.h"
#include "practice/copy_practice.h"
#include "practice/practice.h"

namespace host {

// Makes an office at a server of the group, with its defaults, one location and what `fill` adds, and takes it into the
// group; all of it or nothing. Throws session::DatabaseError.
void AddOffice(OfficeGroup& group, std::int32_t office, const std::string& server,
               const std::function<void(Practice& practice)>& fill = {});

// The same with an office of that number as it is in another practice, of kind 7 too, whose other offices stay behind.
// False when it was stopped, with nothing taken in.
bool AddCopiedOffice(OfficeGroup& group, std::int32_t office, const std::string& server, const std::string& from,
                     const WhileCopying& told);

}  // namespace host
