#pragma once

#include <string>
#include <string_view>

namespace host {

// What another program of the suite would bring up for a list's command ("Trans"), which Practice Desk is not a part
// of.
std::string ToldOfSuite(std::string_view command);

}  // namespace host
