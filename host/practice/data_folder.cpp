#include "practice/data_folder.h"

#include <filesystem>
#include <string_view>

#include "database/database.h"
#include "database/file_path.h"
#include "forms/text.h"

namespace host {
namespace {

constexpr std::string_view kFile = "sqlite:";

std::string FolderName(const std::string& place) {
  std::string name;
  for (const char c : place) {
    const bool plain = forms::IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '.' || c == '-';
    if (plain) {
      name += c;
    } else if (!name.empty() && name.back() != '_') {
      name += '_';
    }
  }
  return name.empty() || name.front() == '.' ? "practice" + name : name;
}

}  // namespace

std::string DataFolderOf(const std::string& url, const std::string& own_folder) {
  if (url.empty() || url.ends_with(":memory:")) {
    return own_folder;
  }
  if (!url.starts_with(kFile)) {
    return own_folder + "/" + FolderName(PlaceOf(url));
  }
  const std::u8string beside = std::filesystem::absolute(FilePath(url.substr(kFile.size()))).parent_path().u8string();
  return {beside.begin(), beside.end()};
}

}  // namespace host
