#include "console/temporary_folder.h"

#include <random>
#include <sstream>
#include <string>

#include "database/private_files.h"
#include "practice/machine.h"

namespace host {
namespace {

// What processes have in common that can be looked up from here.
std::string PrefixOf(const ProcessIdentity& process) {
  return "practice_console-" + std::to_string(std::hash<std::string>()(process.machine + process.system)) + "-";
}

// "practice_console-SYSTEM-NUMBER-START-CHANCE"
std::filesystem::path NewFolder() {
  const ProcessIdentity self = ThisProcess();
  std::random_device chance;
  std::filesystem::path folder;
  do {
    folder = std::filesystem::temp_directory_path() / (PrefixOf(self) + std::to_string(self.number) + "-" +
                                                       std::to_string(self.started) + "-" + std::to_string(chance()));
  } while (!std::filesystem::create_directory(folder));
  MakePrivateFolder(folder);
  return folder;
}

}  // namespace

TemporaryFolder::TemporaryFolder() : path_(NewFolder()) {}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void TemporaryFolder::RemoveLeft() {
  ProcessIdentity owner = ThisProcess();
  const std::string prefix = PrefixOf(owner);
  std::error_code not_ours;
  for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::temp_directory_path(), not_ours)) {
    const std::string name = entry.path().filename().string();
    if (!name.starts_with(prefix)) {
      continue;
    }
    std::istringstream numbers(name.substr(prefix.size()));
    char parted = 0;
    if (numbers >> owner.number >> parted >> owner.started && StateOf(owner) == ProcessState::Ended) {
      std::filesystem::remove_all(entry.path(), not_ours);
    }
  }
}

}  // namespace host
