#include "com/screen_thread.h"

#include <windows.h>

#include <atomic>

#include "automation/com_error.h"

namespace com {
namespace {

std::atomic<DWORD> thread = 0;  // 0 for none
int calls = 0;                  // of that thread

}  // namespace

ScreenThread::ScreenThread() {
  DWORD open_on = 0;
  const DWORD own = GetCurrentThreadId();
  if (!thread.compare_exchange_strong(open_on, own) && open_on != own) {
    throw automation::ComError(RPC_E_WRONG_THREAD, "Screens are open on another thread.");
  }
  ++calls;
}

ScreenThread::~ScreenThread() {
  if (--calls == 0) {
    thread = 0;
  }
}

}  // namespace com
