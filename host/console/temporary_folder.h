#pragma once

#include <filesystem>

namespace host {

// A folder of its own for as long as it lives, for nobody else to look into.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  // Removes those that processes of this machine left which were killed.
  static void RemoveLeft();

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace host
