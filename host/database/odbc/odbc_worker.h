#pragma once

#include <condition_variable>
#include <functional>
#include <future>
#include <mutex>
#include <thread>

namespace host {

// A thread that makes calls which wait, one at a time, so that their caller does not stand still. It starts with the
// first one.
class OdbcWorker {
 public:
  OdbcWorker() = default;
  OdbcWorker(const OdbcWorker&) = delete;
  OdbcWorker& operator=(const OdbcWorker&) = delete;
  ~OdbcWorker();

  // Makes the call there, and calls `meanwhile` every few milliseconds until it has returned.
  int Run(const std::function<int()>& call, const std::function<void()>& meanwhile);

 private:
  void Loop();

  std::mutex changing_;
  std::condition_variable changed_;
  std::packaged_task<int()> task_;
  bool ending_ = false;
  std::thread thread_;
};

}  // namespace host
