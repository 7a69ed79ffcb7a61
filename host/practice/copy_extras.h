#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "database/database.h"

namespace host {

// What a database may hold besides the tables of a practice. All throw session::DatabaseError.

// Copies the recalls as they were before a screen first saved one, which that screen has put into a table of its own;
// nothing where it holds none. With `office` those of that one alone. In the caller's transaction on the target.
void CopyRecallBackup(const PracticeDatabase& source, const PracticeDatabase& target,
                      std::optional<std::int32_t> office);

// Tables that no copy takes along, "Further", and columns of those that it does, "PATable.pFurther".
std::vector<std::string> LeftBehind(const PracticeDatabase& source);

}  // namespace host
