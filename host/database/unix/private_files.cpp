#include "database/private_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace host {
namespace {

constexpr mode_t kOwner = S_IRUSR | S_IWUSR;
constexpr mode_t kGroup = S_IRGRP | S_IWGRP;

// 0 where there is no such file.
mode_t ModeOf(const std::string& path) {
  struct stat found {};
  return stat(path.c_str(), &found) == 0 ? found.st_mode : 0;
}

}  // namespace

void MakePrivate(const std::string& path, Access access) {
  const mode_t wanted = access == Access::Group ? kOwner | kGroup : kOwner;
  // Nobody reads along from before its mode was set: it is made with the narrower one.
  const int made = open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kOwner);
  if (made >= 0) {
    fchmod(made, wanted);
    close(made);
  } else if (const mode_t mode = ModeOf(path); S_ISREG(mode) && (mode & ACCESSPERMS & ~wanted) != 0) {
    chmod(path.c_str(), mode & wanted);
  }
  const mode_t granted = ModeOf(path) & ACCESSPERMS;
  for (const char* tail : {"-wal", "-shm"}) {
    const std::string beside = path + tail;
    if (const mode_t mode = ModeOf(beside); S_ISREG(mode) && (mode & ACCESSPERMS) != granted) {
      chmod(beside.c_str(), granted);
    }
  }
}

Access AccessOf(const std::string& path) {
  return (ModeOf(path) & S_IWGRP) != 0 ? Access::Group : Access::Owner;
}

}  // namespace host
