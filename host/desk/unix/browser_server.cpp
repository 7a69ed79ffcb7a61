#include "unix/browser_server.h"

#include <fcntl.h>
#include <unistd.h>

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/address_v4.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/signal_set.hpp>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <thread>

#include "unix/browser_visits.h"
#include "unix/temporary_folder.h"

namespace host {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;

const std::string kLoopback = "127.0.0.1";

// The place for what goes when this user logs out, if there is one.
std::filesystem::path RuntimeFolder() {
  const char* folder = std::getenv("XDG_RUNTIME_DIR");
  return folder != nullptr && access(folder, W_OK) == 0 ? std::filesystem::path(folder)
                                                        : std::filesystem::temp_directory_path();
}

// Programs that the desk starts do not get our sockets.
template <class Socket>
void KeepToOurselves(Socket& socket) {
  fcntl(socket.native_handle(), F_SETFD, FD_CLOEXEC);
}

bool IsIgnored(int signal) {
  struct sigaction action {};
  return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

class BrowserServer::Listener {
 public:
  Listener(const std::string& title, std::uint16_t port, BrowserVisits::Log log)
      : folder_(RuntimeFolder()), acceptor_(context_), killed_(context_) {
    Listen(port);
    visits_ = std::make_unique<BrowserVisits>(kLoopback + ":" + std::to_string(acceptor_.local_endpoint().port()),
                                              WindowsSocket(), title, std::move(log));
    address_ = visits_->Address();
    RemoveFolderWhenKilled();
    Accept();
    thread_ = std::thread([this] { context_.run(); });
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;
  ~Listener() {
    context_.stop();
    thread_.join();
  }

  std::string WindowsSocket() const { return folder_.Path() + "/windows.socket"; }
  const std::string& Address() const { return address_; }

 private:
  void Listen(std::uint16_t port) {
    const tcp::endpoint endpoint(asio::ip::make_address_v4(kLoopback), port);
    boost::system::error_code error;
    acceptor_.open(endpoint.protocol());
    KeepToOurselves(acceptor_);
    acceptor_.set_option(tcp::acceptor::reuse_address(true));
    acceptor_.bind(endpoint, error);
    if (!error) {
      acceptor_.listen(tcp::acceptor::max_listen_connections, error);
    }
    if (error) {
      throw std::runtime_error("Port " + std::to_string(port) + " of " + kLoopback +
                               " cannot be used: " + error.message() + ".");
    }
  }

  void Accept() {
    acceptor_.async_accept([this](boost::system::error_code error, tcp::socket socket) {
      if (!error) {
        KeepToOurselves(socket);
        visits_->Begin(std::move(socket));
      }
      Accept();
    });
  }

  void RemoveFolderWhenKilled() {
    for (const int signal : {SIGINT, SIGTERM}) {
      if (!IsIgnored(signal)) {
        killed_.add(signal);
      }
    }
    killed_.async_wait([this](boost::system::error_code error, int signal) {
      if (!error) {
        folder_.Remove();
        static_cast<void>(std::signal(signal, SIG_DFL));
        static_cast<void>(std::raise(signal));
      }
    });
  }

  TemporaryFolder folder_;
  std::unique_ptr<BrowserVisits> visits_;  // until the context goes, which holds on to them
  asio::io_context context_{1};
  tcp::acceptor acceptor_;
  asio::signal_set killed_;
  std::string address_;
  std::thread thread_;
};

BrowserServer::BrowserServer(const std::string& title, std::uint16_t port, std::function<void(const std::string&)> log)
    : listener_(std::make_unique<Listener>(title, port, std::move(log))) {}

BrowserServer::~BrowserServer() = default;

std::string BrowserServer::WindowsSocket() const {
  return listener_->WindowsSocket();
}

std::string BrowserServer::Address() const {
  return listener_->Address();
}

}  // namespace host
