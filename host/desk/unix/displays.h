#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "unix/browser_server.h"
#include "unix/child_process.h"

namespace host {

// The folder that this program lies in.
std::string ProgramFolder();

// Whether the environment names a display to show windows on.
bool HasDisplay();

// A display of our own; it goes when this goes. Made before the toolkit starts; sets the environment for it. Throws
// std::runtime_error, saying which program is missing or did not come up, or that the port is taken.
struct OwnDisplay {
  std::unique_ptr<ChildProcess> server;
  std::unique_ptr<BrowserServer> page = {};  // what a browser opens; null for a display that nobody sees
};

// Windows in a browser on this machine, with what BrowserServer takes.
OwnDisplay ServeToBrowser(const std::string& title, std::uint16_t port,
                          const std::function<void(const std::string&)>& log);
// A screen that nobody sees.
OwnDisplay HideFromEverybody();

}  // namespace host
