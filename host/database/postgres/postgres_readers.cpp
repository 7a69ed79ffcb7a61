#include "database/postgres/postgres_readers.h"

#include <algorithm>
#include <utility>

namespace host {
namespace {

// A list, and what is asked while it is half read.
constexpr std::size_t kKept = 2;

}  // namespace

PostgresReaders::PostgresReaders(const PostgresUrl& url, const PostgresSettings& fixed,
                                 const session::WhileBusy& while_busy)
    : url_(url), fixed_(ForReaders(fixed)), while_busy_(while_busy) {}

PostgresReaders::Lease PostgresReaders::Borrow(bool aside) {
  std::erase_if(stopping_, [&](auto& stopping) {
    const bool stopped = stopping.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    if (stopped) {
      Keep(stopping.get());
    }
    return stopped;
  });
  std::unique_ptr<PostgresHandle> reader;
  while (reader == nullptr && !idle_.empty()) {
    reader = std::move(idle_.back());
    idle_.pop_back();
    if (!reader->IsAlive()) {
      reader.reset();
    }
  }
  if (reader == nullptr) {
    reader = std::make_unique<PostgresHandle>(url_, fixed_, while_busy_, aside);
  }
  reader->aside = aside;
  const std::lock_guard lock(changing_);
  lent_.push_back(std::move(reader));
  return {lent_.back().get(), GiveBack{this}};
}

void PostgresReaders::Take(PostgresHandle* reader) {
  std::unique_ptr<PostgresHandle> taken;
  {
    const std::lock_guard lock(changing_);
    const auto found = std::ranges::find(lent_, reader, &std::unique_ptr<PostgresHandle>::get);
    taken = std::move(*found);
    lent_.erase(found);
  }
  if (taken->IsOver()) {
    Keep(std::move(taken));
    return;
  }
  stopping_.push_back(std::async(std::launch::async, [stopping = std::move(taken)]() mutable {
    stopping->Abandon();
    return std::move(stopping);
  }));
}

void PostgresReaders::Keep(std::unique_ptr<PostgresHandle> reader) {
  if (idle_.size() < kKept && reader->IsAlive()) {
    idle_.push_back(std::move(reader));
  }
}

void PostgresReaders::Interrupt() {
  const std::lock_guard lock(changing_);
  for (const auto& reader : lent_) {
    reader->Interrupt();
  }
}

}  // namespace host
