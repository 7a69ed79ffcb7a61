#pragma once

#include <optional>
#include <string_view>

#include "data/sql.h"

namespace lookup {

// The condition that an ID begins with these digits, as ranges that an index answers: "(pID = 12 OR pID BETWEEN 120 AND
// 129 OR ...)". Nothing for a text that no ID begins with.
std::optional<data::Sql> IdBeginning(const data::Sql& column, std::string_view digits);

}  // namespace lookup
