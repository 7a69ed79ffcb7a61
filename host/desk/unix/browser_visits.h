#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "unix/browser_gate.h"

namespace host {

// The connections of browsers. Each brings one request, which is answered, or joined to Broadway's socket when it is
// the page's web socket. For one thread.
class BrowserVisits {
 public:
  using Log = std::function<void(const std::string&)>;

  // `authority` is BrowserGate's, `windows_socket` the path of Broadway's socket, `title` the pages'. `log` gets a line
  // for what is refused.
  BrowserVisits(const std::string& authority, std::string windows_socket, std::string title, Log log);
  BrowserVisits(const BrowserVisits&) = delete;
  BrowserVisits& operator=(const BrowserVisits&) = delete;
  ~BrowserVisits() = default;

  std::string Address() const { return gate_.Address(); }
  void Begin(boost::asio::ip::tcp::socket socket);

 private:
  class Visit;

  void Leave(const Visit& visit);

  BrowserGate gate_;
  std::string windows_socket_;
  std::string title_;
  std::string content_policy_;
  Log log_;
  std::size_t count_ = 0;
  std::weak_ptr<Visit> joined_;   // the page that shows the windows
  std::weak_ptr<Visit> waiting_;  // the one that shows them when that one goes at once, as when it is loaded again
};

}  // namespace host
