#pragma once

#include <ostream>
#include <string>

#include "practice/demo.h"

namespace host {

// Makes a demo practice and tells what is in it. Throws session::DatabaseError.
void RunDemo(const std::string& url, const DemoOptions& options, std::ostream& output);

}  // namespace host
