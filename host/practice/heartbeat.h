#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace host {

// Calls a function at intervals for as long as it lives, on a thread of its own: a window that waits for its database
// gives signs of life too. A beat that fails is passed over.
class Heartbeat {
 public:
  Heartbeat(std::function<void()> beat, std::chrono::seconds every);

 private:
  std::mutex resting_;
  std::condition_variable_any stopped_;
  std::jthread thread_;
};

}  // namespace host
