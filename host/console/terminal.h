#pragma once

#include <istream>
#include <optional>
#include <ostream>
#include <string>

namespace host {

// Plays steps as a person types them, on the practice at the URL or, without one, on a fresh empty one, until `quit`
// or the end of the input. A step that fails is told of and the next one read. Throws session::DatabaseError when
// the practice cannot be opened.
void RunTerminal(std::istream& input, std::ostream& output, const std::optional<std::string>& database_url);

}  // namespace host
