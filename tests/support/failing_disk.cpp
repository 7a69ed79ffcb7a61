#include "support/failing_disk.h"

#include <csignal>
#include <list>

namespace test_support {
namespace {

// The methods of a kind of file, with some put in place of SQLite's own.
struct Methods {
  sqlite3_io_methods changed;  // first: a file leads to it
  const sqlite3_io_methods* own;
};

DiskFault waiting_fault = DiskFault::None;
int moments_set = 0;
int moments_left = 0;
int quarters_written = 0;
sqlite3_vfs* own_files = nullptr;

const sqlite3_io_methods& Own(const sqlite3_file* file) {
  return *reinterpret_cast<const Methods*>(file->pMethods)->own;
}

// Whether the moment has come.
bool Due() {
  return waiting_fault != DiskFault::None && --moments_left <= 0;
}

// What a change that is no write comes to.
int Change() {
  if (waiting_fault == DiskFault::KilledWriting || waiting_fault == DiskFault::Full || !Due()) {
    return SQLITE_OK;
  }
  if (waiting_fault == DiskFault::Killed) {
    static_cast<void>(raise(SIGKILL));
  }
  return SQLITE_IOERR;
}

int Write(sqlite3_file* file, const void* data, int size, sqlite3_int64 offset) {
  if (Due()) {
    switch (waiting_fault) {
      case DiskFault::KilledWriting:
        Own(file).xWrite(file, data, size * quarters_written / 4, offset);
        [[fallthrough]];
      case DiskFault::Killed:
        return raise(SIGKILL);
      case DiskFault::Full:
        return SQLITE_FULL;
      default:
        return SQLITE_IOERR_WRITE;
    }
  }
  return Own(file).xWrite(file, data, size, offset);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
  const int code = Change();
  return code == SQLITE_OK ? Own(file).xTruncate(file, size) : code;
}

int Sync(sqlite3_file* /*file*/, int /*flags*/) {
  return Change();
}

int Delete(sqlite3_vfs* files, const char* name, int sync_folder) {
  const int code = Change();
  return code == SQLITE_OK ? own_files->xDelete(files, name, sync_folder) : code;
}

int Open(sqlite3_vfs* files, const char* name, sqlite3_file* file, int flags, int* flags_out) {
  static std::list<Methods> all;
  const int code = own_files->xOpen(files, name, file, flags, flags_out);
  if (code != SQLITE_OK || file->pMethods == nullptr) {
    return code;
  }
  all.push_back({*file->pMethods, file->pMethods});
  Methods& methods = all.back();
  methods.changed.xWrite = Write;
  methods.changed.xTruncate = Truncate;
  methods.changed.xSync = Sync;
  file->pMethods = &methods.changed;
  return code;
}

}  // namespace

void InstallFailingDisk() {
  if (own_files != nullptr) {
    return;
  }
  own_files = sqlite3_vfs_find(nullptr);
  static sqlite3_vfs files = *own_files;
  files.zName = "failing";
  files.pNext = nullptr;
  files.xOpen = Open;
  files.xDelete = Delete;
  sqlite3_vfs_register(&files, 1);
}

void FailAt(int moment, DiskFault fault, int quarters) {
  quarters_written = quarters;
  waiting_fault = fault;
  moments_set = moment;
  moments_left = moment;
}

bool DiskFailed() {
  return waiting_fault != DiskFault::None && moments_left <= 0;
}

int MomentsPassed() {
  return moments_set - moments_left;
}

}  // namespace test_support
