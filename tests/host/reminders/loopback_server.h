#pragma once

#include <boost/asio.hpp>

#include <atomic>
#include <exception>
#include <functional>
#include <thread>

namespace test_support {

// A server on the loopback address that holds one conversation after the other.
class LoopbackServer {
 public:
  using Stream = boost::asio::ip::tcp::iostream;

  explicit LoopbackServer(std::function<void(Stream&)> talk)
      : acceptor_(context_, {boost::asio::ip::address_v4::loopback(), 0}), thread_([this, talk = std::move(talk)] {
          for (;;) {
            Stream stream;
            acceptor_.accept(stream.socket());
            if (stopping_) {
              return;
            }
            talk(stream);
          }
        }) {}
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;
  ~LoopbackServer() {
    try {
      Stop();
    } catch (const std::exception&) {
      std::terminate();
    }
  }

  int Port() const { return port_; }
  // Nothing is being said any more, and the port is closed.
  void Stop() {
    if (thread_.joinable()) {
      stopping_ = true;
      Stream wake("127.0.0.1", std::to_string(port_));
      thread_.join();
      acceptor_.close();
    }
  }

 private:
  boost::asio::io_context context_;
  boost::asio::ip::tcp::acceptor acceptor_;
  const int port_ = acceptor_.local_endpoint().port();
  std::atomic<bool> stopping_ = false;
  std::thread thread_;
};

}  // namespace test_support
