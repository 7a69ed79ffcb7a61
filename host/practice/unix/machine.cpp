#include "practice/machine.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <ctime>
#include <fstream>
#include <sstream>
#include <string_view>
#include <thread>

namespace host {
namespace {

// 0 when the process is not running.
std::int64_t StartOf(std::int64_t number) {
  std::ifstream file("/proc/" + std::to_string(number) + "/stat");
  std::string line;
  if (!std::getline(file, line)) {
    return 0;
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

std::string MachineName() {
  std::array<char, 256> name{};
  return gethostname(name.data(), name.size() - 1) == 0 ? std::string(name.data()) : std::string();
}

std::vector<std::string> SplitWords(std::string_view line) {
  std::vector<std::string> words;
  bool in_word = false;
  bool quoted = false;
  for (const char c : line) {
    if (c == ' ' && !quoted) {
      in_word = false;
      continue;
    }
    if (!in_word) {
      words.emplace_back();
      in_word = true;
    }
    if (c == '"') {
      quoted = !quoted;
    } else {
      words.back() += c;
    }
  }
  return words;
}

}  // namespace

ProcessIdentity ThisProcess() {
  const auto number = static_cast<std::int64_t>(getpid());
  return {MachineName(), number, StartOf(number)};
}

bool MayBeAlive(const ProcessIdentity& process) {
  return process.machine != MachineName() || StartOf(process.number) == process.started;
}

bool StartProcess(const std::string& command_line) {
  auto words = SplitWords(command_line);
  if (words.empty()) {
    return false;
  }
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (auto& word : words) {
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
