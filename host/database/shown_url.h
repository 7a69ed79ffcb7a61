#pragma once

#include <string>

namespace host {

// A database URL as a person, a log or a message may see it: "***" in the place of its password.
std::string ShownUrl(const std::string& url);

}  // namespace host
