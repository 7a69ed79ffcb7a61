#include "editing/kept_layout.h"

#include <algorithm>
#include <exception>
#include <fstream>
#include <random>
#include <string_view>
#include <utility>

#include "editing/grid_layout.h"
#include "forms/text.h"

namespace editing {
namespace {

namespace fs = std::filesystem;

// What is larger is no layout.
constexpr std::uintmax_t kMostBytes = 16'000'000;

fs::path PathOf(std::string_view utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

bool IsPlainName(std::string_view key) {
  const auto is_plain = [](char c) {
    return static_cast<unsigned char>(c) >= ' ' && std::string_view("/\\:*?\"<>|").find(c) == std::string_view::npos;
  };
  return !key.empty() && key != "." && key != ".." && std::ranges::all_of(key, is_plain);
}

// The entry of that name, in whatever case other programs wrote it.
fs::path EntryOf(const fs::path& folder, const std::string& name) {
  fs::path exact = folder / PathOf(name);
  if (!fs::exists(exact) && fs::is_directory(folder)) {
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
      const std::u8string found = entry.path().filename().u8string();
      if (forms::EqualsIgnoringCase({reinterpret_cast<const char*>(found.data()), found.size()}, name)) {
        return entry.path();
      }
    }
  }
  return exact;
}

fs::path LayoutFile(const session::Machine& machine, const std::string& key) {
  const std::string folder = machine.DataFolder();
  return folder.empty() || !IsPlainName(key) ? fs::path()
                                             : EntryOf(EntryOf(PathOf(folder), "STP"), "TG" + key + ".STP");
}

std::string TextOf(const fs::path& file) {
  if (!fs::is_regular_file(file) || fs::file_size(file) > kMostBytes) {
    return {};
  }
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// In one step: whoever reads meanwhile, or finds what a killed program left, has the text before or this one whole.
void Replace(const fs::path& file, const std::string& text) {
  fs::create_directory(file.parent_path());
  fs::path beside = file;
  beside += "." + std::to_string(std::random_device()());
  std::ofstream stream(beside);  // with the platform's line ends
  stream << text;
  stream.close();
  std::error_code error;
  if (stream) {
    fs::rename(beside, file, error);
  }
  if (!stream || error) {
    fs::remove(beside, error);
  }
}

// Of files: what fails changes nothing.
template <typename Work>
void TryQuietly(const Work& work) {
  try {
    work();
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): the grid is good without
  }
}

}  // namespace

void KeptLayout::Restore(const std::string& key) {
  built_ = grid_.Layout();
  grid_.RestoreLayout = [this] { RestoreBuiltIn(); };
  TryQuietly([&] {
    file_ = LayoutFile(machine_, key);
    if (const std::string text = TextOf(file_); !text.empty()) {
      ReadLayout(text, key, grid_);
    }
  });
  kept_ = grid_.Layout();
}

void KeptLayout::Keep() {
  if (file_.empty() || grid_.Layout() == kept_) {
    return;
  }
  kept_ = grid_.Layout();
  TryQuietly([this] { Replace(file_, WriteLayout(grid_, ColumnKeys::DataFields, grid_.RowHeight > 0)); });
}

void KeptLayout::RestoreBuiltIn() {
  grid_.Arrange(built_);
  grid_.RowHeight = 0;
  kept_ = built_;
  TryQuietly([this] {
    if (fs::is_regular_file(file_)) {
      fs::remove(file_);
    }
  });
}

}  // namespace editing
