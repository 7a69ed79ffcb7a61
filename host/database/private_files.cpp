#include "database/private_files.h"

namespace host {

void MakePrivateFolder(const std::filesystem::path& path, Access access) {
  using std::filesystem::perms;
  std::filesystem::create_directories(path);
  std::error_code not_ours;
  // What is made in a group's folder goes to the group.
  const perms kept = std::filesystem::status(path, not_ours).permissions() & perms::set_gid;
  const perms wanted = access == Access::Group ? perms::owner_all | perms::group_all : perms::owner_all;
  std::filesystem::permissions(path, kept | wanted, not_ours);
}

}  // namespace host
