#include "unix/displays.h"

#include <fcntl.h>
#include <sodium.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <system_error>
#include <thread>

namespace host {
namespace {

bool IsSet(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr && *value != '\0';
}

// Whether a file of the kernel's has a line that ends so and has the other text.
bool HasLine(const std::string& file, std::string_view end, std::string_view part) {
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    if (line.ends_with(end) && line.find(part) != std::string::npos) {
      return true;
    }
  }
  return false;
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

// Broadway takes the programs at an abstract socket, which everybody on the machine can reach: the guard keeps other
// users out, and a number that nobody can know before keeps them from taking its name.
OwnDisplay ServeToBrowser(const std::string& title, std::uint16_t port,
                          const std::function<void(const std::string&)>& log) {
  auto page = std::make_unique<BrowserServer>(title, port, log);
  const std::uint32_t number = randombytes_uniform(1'000'000'000);
  const std::string display = ":" + std::to_string(number);
  const std::string programs_socket = "/broadway" + std::to_string(number + 1) + ".socket";
  const std::string guard = ProgramFolder() + "/broadway_guard.so";
  const char* before = std::getenv("LD_PRELOAD");
  const std::string preloaded = before != nullptr ? before : "";
  setenv("LD_PRELOAD", (guard + " " + preloaded).c_str(), 1);
  auto server = Start({"broadwayd", "--unixsocket=" + page->WindowsSocket(), display}, "libgtk-3-bin", [&] {
    constexpr std::string_view kListens = " 00010000 ";
    return HasLine("/proc/net/unix", programs_socket, kListens);
  });
  setenv("LD_PRELOAD", preloaded.c_str(), 1);
  if (!HasLine("/proc/" + std::to_string(server->Id()) + "/maps", guard, "")) {
    throw std::runtime_error("broadwayd cannot be kept to this user: it does not load " + guard + ".");
  }
  setenv("GDK_BACKEND", "broadway", 1);
  setenv("BROADWAY_DISPLAY", display.c_str(), 1);
  return {std::move(server), std::move(page)};
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
