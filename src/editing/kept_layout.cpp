#include "editing/kept_layout.h"

#include <algorithm>
#include <exception>
#include <fstream>
#include <random>
#include <string_view>
#include <utility>

#include "editing/data_files.h"
#include "editing/grid_layout.h"

namespace editing {
namespace {

namespace fs = std::filesystem;

// What is larger is no layout.
constexpr std::uintmax_t kMostBytes = 16'000'000;

fs::path LayoutFile(const session::Machine& machine, const std::string& key) {
  const std::string folder = machine.DataFolder();
  return folder.empty() || !IsPlainName(key) ? fs::path()
                                             : EntryOf(EntryOf(PathOf(folder), "STP"), "TG" + key + ".STP");
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
    if (const auto text = ContentsOf(file_, kMostBytes); text && !text->empty()) {
      ReadLayout(*text, key, grid_);
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
