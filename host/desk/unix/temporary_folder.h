#pragma once

#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): mkdtemp

#include <filesystem>
#include <stdexcept>
#include <string>

namespace host {

// A folder that this user alone can reach, and that goes when this goes. Throws std::runtime_error when none can be
// made.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(const std::filesystem::path& parent = std::filesystem::temp_directory_path())
      : path_((parent / "practice_desk-XXXXXX").string()) {
    if (mkdtemp(path_.data()) == nullptr) {
      throw std::runtime_error("No folder can be made in " + parent.string() + ".");
    }
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() { Remove(); }

  const std::string& Path() const { return path_; }
  void Remove() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

 private:
  std::string path_;
};

}  // namespace host
