#include "database/private_files.h"

namespace host {

void MakePrivateFolder(const std::filesystem::path& path) {
  std::filesystem::create_directories(path);
  std::error_code not_ours;
  std::filesystem::permissions(path, std::filesystem::perms::owner_all, not_ours);
}

}  // namespace host
