#include "practice/machine.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string_view>
#include <thread>

namespace host {
namespace {

// Nothing when it cannot be read, 0 when the process has ended and waits for its parent.
std::optional<std::int64_t> StartOf(std::int64_t number) {
  std::ifstream file("/proc/" + std::to_string(number) + "/stat");
  std::string line;
  if (!std::getline(file, line)) {
    return std::nullopt;
  }
  // The second field, the program's name, may hold anything; the third is the state, the 22nd the start.
  std::istringstream rest(line.substr(line.rfind(')') + 1));
  std::string field;
  rest >> field;
  if (field == "Z" || field == "X") {
    return 0;
  }
  for (int position = 4; position < 22; ++position) {
    rest >> field;
  }
  std::int64_t start = 0;
  rest >> start;
  return start;
}

// The start of the machine and the space that process numbers are counted in; a container has one of its own.
std::string SystemName() {
  std::ifstream file("/proc/sys/kernel/random/boot_id");
  std::string boot;
  std::error_code unknown;
  const std::string space = std::filesystem::read_symlink("/proc/self/ns/pid", unknown).string();
  return std::getline(file, boot) && !space.empty() ? boot + " " + space : std::string();
}

std::string MachineName() {
  std::array<char, 256> name{};
  return gethostname(name.data(), name.size() - 1) == 0 ? std::string(name.data()) : std::string();
}

}  // namespace

ProcessIdentity ThisProcess() {
  const auto number = static_cast<std::int64_t>(getpid());
  return {MachineName(), SystemName(), number, StartOf(number).value_or(0)};
}

ProcessState StateOf(const ProcessIdentity& process) {
  if (process.system.empty() || process.system != SystemName()) {
    return ProcessState::Elsewhere;
  }
  if (const auto start = StartOf(process.number)) {
    return *start == process.started ? ProcessState::Runs : ProcessState::Ended;
  }
  // Another account's processes may be hidden, but they take signals or refuse them.
  const bool there = kill(static_cast<pid_t>(process.number), 0) == 0 || errno == EPERM;
  return there ? ProcessState::Runs : ProcessState::Ended;
}

bool StartProcess(const std::vector<std::string>& words) {
  if (words.empty()) {
    return false;
  }
  std::vector<std::string> kept = words;
  std::vector<char*> arguments;
  arguments.reserve(kept.size() + 1);
  for (auto& word : kept) {
    arguments.push_back(word.data());
  }
  arguments.push_back(nullptr);
  pid_t child = 0;
  if (posix_spawnp(&child, arguments.front(), nullptr, nullptr, arguments.data(), environ) != 0) {
    return false;
  }
  std::thread([child] { waitpid(child, nullptr, 0); }).detach();
  return true;
}

bool OpenLetter(const std::string& file) {
  return StartProcess({"libreoffice", "--writer", file}) || StartProcess({"abiword", file}) ||
         StartProcess({"xdg-open", file});
}

std::string_view FileManager() {
  return "xdg-open";
}

bool SyncFile(const std::string& file) {
  const int opened = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  const bool synced = opened >= 0 && fsync(opened) == 0;
  if (opened >= 0) {
    close(opened);
  }
  return synced;
}

forms::DateTime LocalNow() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  namespace chrono = std::chrono;
  const forms::Date day{chrono::year(local.tm_year + 1900), chrono::month(static_cast<unsigned>(local.tm_mon + 1)),
                        chrono::day(static_cast<unsigned>(local.tm_mday))};
  return forms::AtMidnight(day) + chrono::hours(local.tm_hour) + chrono::minutes(local.tm_min) +
         chrono::seconds(local.tm_sec);
}

std::vector<std::string> ProgramArguments(int count, char** words) {
  return {words + 1, words + count};
}

void SpeakUtf8AtConsole() {}

}  // namespace host
