#include "database/postgres/postgres_replica.h"

#include <thread>
#include <utility>

namespace host {
namespace {

// How long it is left alone after it could not be reached.
constexpr std::chrono::seconds kPause{30};
// How long it is waited for: a server that follows is some milliseconds behind.
constexpr std::chrono::milliseconds kMoment{5};
constexpr int kMoments = 4;

PostgresUrl Quick(const PostgresUrl& url) {
  PostgresUrl replica = OnReplica(url);
  replica.options["connect_timeout"] = "2";
  return replica;
}

}  // namespace

PostgresReplica::PostgresReplica(const PostgresUrl& url, const PostgresSettings& fixed,
                                 const session::WhileBusy& while_busy, Question question)
    : url_(url.replica.empty() ? PostgresUrl() : Quick(url)),
      readers_(url_, fixed, while_busy),
      question_(std::move(question)) {}

PostgresReaders::Lease PostgresReplica::Borrow() {
  const auto now = std::chrono::steady_clock::now();
  if (url_.options.empty() || now < next_try_) {
    return nullptr;
  }
  const std::string question = question_();
  try {
    PostgresReaders::Lease reader = readers_.Borrow();
    for (int i = 0; i < kMoments; ++i) {
      const PostgresResult level = reader->Run({}, question, {});
      if (PQgetisnull(level.get(), 0, 0) != 0) {
        next_try_ = now + kPause;  // it has been promoted and goes its own way, or is another's
        return nullptr;
      }
      if (std::string_view(PQgetvalue(level.get(), 0, 0)) == "t") {
        return reader;
      }
      std::this_thread::sleep_for(kMoment);
    }
  } catch (const session::DatabaseError&) {
    next_try_ = now + kPause;
  }
  return nullptr;
}

}  // namespace host
