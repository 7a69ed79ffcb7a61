#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace host {

// A path from UTF-8 text; a path made of the text itself would be read in the system's code page on Windows.
inline std::filesystem::path FilePath(std::string_view text) {
  return std::u8string(text.begin(), text.end());
}

}  // namespace host
