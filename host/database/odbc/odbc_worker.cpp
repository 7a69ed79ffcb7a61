#include "database/odbc/odbc_worker.h"

#include <chrono>
#include <utility>

namespace host {
namespace {

constexpr std::chrono::milliseconds kPause(10);

}  // namespace

OdbcWorker::~OdbcWorker() {
  if (thread_.joinable()) {
    {
      const std::lock_guard lock(changing_);
      ending_ = true;
    }
    changed_.notify_one();
    thread_.join();
  }
}

int OdbcWorker::Run(const std::function<int()>& call, const std::function<void()>& meanwhile) {
  std::packaged_task<int()> task(call);
  std::future<int> returned = task.get_future();
  {
    const std::lock_guard lock(changing_);
    task_ = std::move(task);
  }
  if (!thread_.joinable()) {
    thread_ = std::thread([this] { Loop(); });
  }
  changed_.notify_one();
  try {
    while (returned.wait_for(kPause) != std::future_status::ready) {
      meanwhile();
    }
  } catch (...) {
    returned.wait();  // the call works with what is here
    throw;
  }
  return returned.get();
}

void OdbcWorker::Loop() {
  std::unique_lock lock(changing_);
  while (true) {
    changed_.wait(lock, [this] { return ending_ || task_.valid(); });
    if (ending_) {
      return;
    }
    std::packaged_task<int()> task = std::exchange(task_, {});
    lock.unlock();
    task();
    lock.lock();
  }
}

}  // namespace host
