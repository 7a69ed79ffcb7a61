#include "unix/displays.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iomanip>
#include <sstream>
#include <stdexcept>
#include <system_error>
#include <thread>

namespace host {
namespace {

constexpr std::string_view kLoopback = "127.0.0.1";

bool IsSet(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr && *value != '\0';
}

int FreePort() {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  const int probe = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  auto* generic = reinterpret_cast<sockaddr*>(&address);  // NOLINT: the C interface takes it so
  const bool found = probe >= 0 && bind(probe, generic, length) == 0 && getsockname(probe, generic, &length) == 0;
  close(probe);
  if (!found) {
    throw std::runtime_error("No port of 127.0.0.1 is free.");
  }
  return ntohs(address.sin_port);
}

// Whether a kernel's table of sockets has a line with both texts. It tells who listens without a caller that hangs up.
bool HasLine(const char* table, const std::string& first, const std::string& second) {
  std::ifstream lines(table);
  for (std::string line; std::getline(lines, line);) {
    if (line.find(first) != std::string::npos && line.find(second) != std::string::npos) {
      return true;
    }
  }
  return false;
}

// The browser and the program come to the server through one socket each.
bool ServesWindows(int port) {
  std::ostringstream local;
  local << "0100007F:" << std::uppercase << std::hex << std::setw(4) << std::setfill('0') << port;
  return HasLine("/proc/net/tcp", local.str(), " 00000000:0000 0A ") &&
         HasLine("/proc/net/unix", "/broadway" + std::to_string(port + 1) + ".socket", " 00010000 ");
}

std::unique_ptr<ChildProcess> Start(const std::vector<std::string>& command, const std::string& package,
                                    const std::function<bool()>& up) {
  std::unique_ptr<ChildProcess> server;
  try {
    server = std::make_unique<ChildProcess>(command, ChildProcess::Talk::Silent);
  } catch (const std::system_error&) {
    throw std::runtime_error(command.front() + " cannot be started; it comes with the package " + package + ".");
  }
  constexpr int kTries = 500;
  for (int i = 0; i < kTries && server->Running(); ++i) {
    if (up()) {
      return server;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  throw std::runtime_error(command.front() + " did not come up.");
}

}  // namespace

std::string ProgramFolder() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
}

bool HasDisplay() {
  return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY") || IsSet("BROADWAY_DISPLAY");
}

OwnDisplay ServeToBrowser() {
  namespace fs = std::filesystem;
  const int port = FreePort();
  const std::string number = std::to_string(port);
  if (!IsSet("XDG_RUNTIME_DIR")) {
    const fs::path folder = fs::temp_directory_path() / ("practice_desk-" + std::to_string(getuid()));
    fs::create_directories(folder);
    fs::permissions(folder, fs::perms::owner_all);
    setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
  }
  const std::string display = ":" + number;
  auto server = Start({"broadwayd", "--address=" + std::string(kLoopback), "--port=" + number, display}, "libgtk-3-bin",
                      [port] { return ServesWindows(port); });
  setenv("GDK_BACKEND", "broadway", 1);
  setenv("BROADWAY_DISPLAY", display.c_str(), 1);
  return {std::move(server), "http://" + std::string(kLoopback) + ":" + number + "/"};
}

// The server takes a free number by itself and writes it when it is up.
OwnDisplay HideFromEverybody() {
  std::array<int, 2> number_pipe{};
  if (pipe(number_pipe.data()) != 0) {
    throw std::runtime_error("No pipe can be made.");
  }
  const auto [from_server, for_server] = number_pipe;
  fcntl(from_server, F_SETFL, O_NONBLOCK);
  std::string number;
  const auto read_number = [&, from_server = from_server] {
    std::array<char, 16> text{};
    const ssize_t count = read(from_server, text.data(), text.size());
    number.append(text.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return number.ends_with('\n');
  };
  auto server =
      Start({"Xvfb", "-displayfd", std::to_string(for_server), "-screen", "0", "3200x2400x24", "-nolisten", "tcp"},
            "xvfb", read_number);
  close(from_server);
  close(for_server);
  number.pop_back();
  setenv("DISPLAY", (":" + number).c_str(), 1);
  setenv("GDK_BACKEND", "x11", 1);
  return {std::move(server)};
}

}  // namespace host
