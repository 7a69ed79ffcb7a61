#pragma once

#include <string>

namespace host {

// Letters and digits that nothing else has.
std::string NewId();

}  // namespace host
