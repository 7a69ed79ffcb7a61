#include "database/odbc/odbc_readers.h"

#include <algorithm>
#include <utility>

namespace host {
namespace {

// A list, and what is asked while it is half read.
constexpr std::size_t kKept = 2;

}  // namespace

OdbcReaders::Lease OdbcReaders::Borrow() {
  std::unique_ptr<OdbcHandle> reader;
  if (idle_.empty()) {
    reader = std::make_unique<OdbcHandle>(source_.for_reading, source_.fixed_for_reading, while_busy_);
    made_(*reader);
  } else {
    reader = std::move(idle_.back());
    idle_.pop_back();
  }
  const std::lock_guard lock(changing_);
  lent_.push_back(std::move(reader));
  return {lent_.back().get(), GiveBack{this}};
}

void OdbcReaders::Take(OdbcHandle* reader) {
  std::unique_ptr<OdbcHandle> taken;
  {
    const std::lock_guard lock(changing_);
    const auto found = std::ranges::find(lent_, reader, &std::unique_ptr<OdbcHandle>::get);
    taken = std::move(*found);
    lent_.erase(found);
  }
  if (idle_.size() < kKept && !taken->Lost()) {
    idle_.push_back(std::move(taken));
  }
}

void OdbcReaders::Interrupt() {
  const std::lock_guard lock(changing_);
  for (const auto& reader : lent_) {
    reader->Interrupt();
  }
}

}  // namespace host
