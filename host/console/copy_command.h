#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "practice/copy_practice.h"

namespace host {

// Tells how far a copy is, what it left behind, and its end; `stopped` where Ctrl+C ended it, which gives false.
bool TellOfCopy(const std::function<bool(const WhileCopying& told)>& copy, std::string_view stopped,
                std::ostream& output);

// Copies a practice, or one office of it, to where there is none yet, or goes on with a copy that was broken off. False
// when it was ended by Ctrl+C. Throws session::DatabaseError.
bool RunCopy(const std::string& from, const std::string& to, std::optional<std::int32_t> office, std::ostream& output);

}  // namespace host
