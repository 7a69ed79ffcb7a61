#include "editing/data_files.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>

#include "forms/text.h"

namespace editing {
namespace {

namespace fs = std::filesystem;

// What stands before the first full stop names a device, whatever stands behind it.
bool IsDevice(std::string_view name) {
  constexpr std::array<std::string_view, 8> kDevices = {"CON", "CONIN$", "CONOUT$", "PRN", "AUX", "NUL", "COM", "LPT"};
  static constexpr std::array<std::string_view, 3> kRaised = {"\u00B9", "\u00B2", "\u00B3"};
  const std::string stem = forms::ToUpper(forms::Trim(name.substr(0, name.find('.'))));
  return std::ranges::any_of(kDevices, [&stem](std::string_view device) {
    const std::string_view number = std::string_view(stem).substr(std::min(stem.size(), device.size()));
    const bool numbered = device == "COM" || device == "LPT";
    return stem.starts_with(device) &&
           (numbered ? (number.size() == 1 && forms::IsDigit(number[0])) || std::ranges::count(kRaised, number) > 0
                     : number.empty());
  });
}

}  // namespace

fs::path PathOf(std::string_view utf8) {
  return {std::u8string(utf8.begin(), utf8.end())};
}

std::string TextOf(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

bool IsPlainName(std::string_view name) {
  const auto is_plain = [](char c) {
    return static_cast<unsigned char>(c) >= ' ' && std::string_view("/\\:*?\"<>|").find(c) == std::string_view::npos;
  };
  return !name.empty() && !name.ends_with('.') && !name.ends_with(' ') && std::ranges::all_of(name, is_plain) &&
         !IsDevice(name);
}

fs::path EntryOf(const fs::path& folder, std::string_view name) {
  fs::path exact = folder / PathOf(name);
  if (!fs::exists(exact) && fs::is_directory(folder)) {
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
      if (forms::EqualsIgnoringCase(TextOf(entry.path().filename()), name)) {
        return entry.path();
      }
    }
  }
  return exact;
}

std::optional<std::string> ContentsOf(const fs::path& file, std::uintmax_t most_bytes) {
  if (!fs::is_regular_file(file) || fs::file_size(file) > most_bytes) {
    return std::nullopt;
  }
  std::ifstream stream(file, std::ios::binary);
  std::string bytes(std::istreambuf_iterator<char>(stream), {});
  return !stream.is_open() || stream.bad() ? std::nullopt : std::optional(std::move(bytes));
}

}  // namespace editing
