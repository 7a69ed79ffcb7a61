#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>

namespace host {

// Does what the recall utility does, in the given office or the practice's first one. Throws session::DatabaseError.
void RunRecall(const std::string& url, std::optional<std::int32_t> office, std::int32_t recall, std::ostream& output);

}  // namespace host
