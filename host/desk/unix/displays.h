#pragma once

#include <memory>
#include <string>

#include "unix/child_process.h"

namespace host {

// The folder that this program lies in.
std::string ProgramFolder();

// Whether the environment names a display to show windows on.
bool HasDisplay();

// A display of our own; it goes when this goes. Made before the toolkit starts; sets the environment for it. Throws
// std::runtime_error, saying which program is missing or did not come up.
struct OwnDisplay {
  std::unique_ptr<ChildProcess> server;
  std::string address = {};  // what a browser opens; empty for a display that nobody sees
};

// Windows in a browser on this machine.
OwnDisplay ServeToBrowser();
// A screen that nobody sees.
OwnDisplay HideFromEverybody();

}  // namespace host
