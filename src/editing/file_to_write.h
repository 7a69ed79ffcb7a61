#pragma once

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>

#include "forms/user.h"

namespace editing {

// The file that the person names, `choice.name` being proposed; both have the ending (".csv") unless he types another.
// A file that is there is written over only when he says so, otherwise he names another. Nothing when he gives up.
std::optional<std::string> PickFileToWrite(forms::User& user, forms::FileChoice choice, std::string_view ending);

// A file that appears whole or not at all: it is written beside its place, and takes it in one step. All throw Refusal,
// with the system's reason.
class FileToWrite {
 public:
  // The path is UTF-8.
  explicit FileToWrite(std::string_view path);
  FileToWrite(const FileToWrite&) = delete;
  FileToWrite& operator=(const FileToWrite&) = delete;
  // Leaves nothing behind of what is not finished.
  ~FileToWrite();

  void Write(std::string_view bytes);
  void Finish();

 private:
  [[noreturn]] void Fail(const std::error_code& reason) const;

  std::filesystem::path path_;
  std::filesystem::path beside_;
  std::ofstream file_;
};

}  // namespace editing
