#pragma once

#include <sqlite3.h>

// SQLite's files on a disk that fills up, on one that breaks, or in a process that is killed, at a chosen moment.
namespace test_support {

enum class DiskFault {
  None,
  Killed,         // before a file is written, synchronised, cut or deleted
  KilledWriting,  // when a part of what is written is there
  Full,           // from this write on nothing can be written
  Broken,         // from here on no file can be changed
};

// All of SQLite's files from now on; synchronising is left out, as no power fails here.
void InstallFailingDisk();
// The fault comes at the `moment`-th change from now on, 1 for the next. For `KilledWriting`, of which so many quarters
// get done, and `Full` only writes are counted.
void FailAt(int moment, DiskFault fault, int quarters = 0);
// Whether it has come.
bool DiskFailed();
// How many changes, or writes, there have been since.
int MomentsPassed();

}  // namespace test_support
