#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

// Files that the suite's programs share below the data folder.
namespace editing {

std::filesystem::path PathOf(std::string_view utf8);
std::string TextOf(const std::filesystem::path& path);

// A name that stays in its folder on every system: without a separator or a sign of its own meaning, no device, and
// nothing at its end that a system would take off.
bool IsPlainName(std::string_view name);

// The folder's entry of that name, in whatever case other programs wrote it; the name as it is where there is none.
// Throws std::filesystem::filesystem_error.
std::filesystem::path EntryOf(const std::filesystem::path& folder, std::string_view name);

// The bytes of a file; nothing where there is none, and for one that is larger. Throws as `EntryOf`.
std::optional<std::string> ContentsOf(const std::filesystem::path& file, std::uintmax_t most_bytes);

}  // namespace editing
