#pragma once

namespace com {

// The thread that has screens open, for as long as it lives. Calls may be nested; one from another thread meanwhile is
// refused: throws ComError (RPC_E_WRONG_THREAD).
class ScreenThread {
 public:
  ScreenThread();
  ScreenThread(const ScreenThread&) = delete;
  ScreenThread& operator=(const ScreenThread&) = delete;
  ~ScreenThread();
};

}  // namespace com
