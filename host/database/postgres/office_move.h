#pragma once

#include <cstdint>

#include "database/postgres/office_directory.h"
#include "database/postgres/office_server.h"

namespace host {

// Copies an office's tables from its home to another server while others work in it, catches up with what they write
// meanwhile, and holds the writers off for the last of it. Then the home holds `moved` for its directory: that commit
// decides, and from it on nobody works in the office until the other server is settled. What fails before changes
// nothing for those who work. Throws session::DatabaseError.
void MoveOffice(std::int32_t office, const OfficeServer& from, const OfficeServer& to, const OfficeDirectory& moved);

}  // namespace host
