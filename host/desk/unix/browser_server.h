#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace host {

// Stands before the windows that Broadway serves, on a thread of its own: lets one browser in (`BrowserGate`), one page
// at a time, and hands its bytes to a socket in a folder that this user alone can reach.
class BrowserServer {
 public:
  // `title` is the pages'; `port` of the loopback address, 0 for any that is free. `log` gets a line for what is
  // refused, on the server's thread. Throws std::runtime_error when the port is taken.
  BrowserServer(const std::string& title, std::uint16_t port, std::function<void(const std::string&)> log);
  BrowserServer(const BrowserServer&) = delete;
  BrowserServer& operator=(const BrowserServer&) = delete;
  ~BrowserServer();

  // Where Broadway is to listen.
  std::string WindowsSocket() const;
  // What a person opens; it works once.
  std::string Address() const;

 private:
  class Listener;
  std::unique_ptr<Listener> listener_;
};

}  // namespace host
