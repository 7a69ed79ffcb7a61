#include "database/postgres/postgres_handle.h"

#include <poll.h>

#include <array>
#include <future>
#include <thread>
#include <utility>
#include <vector>

#include "database/postgres/postgres_error.h"

namespace host {
namespace {

using std::chrono::milliseconds;

// How often a statement that runs is told.
constexpr milliseconds kBusyEvery{10};
// A statement that runs for so long may be waiting for another; asked no more often than that either.
constexpr milliseconds kLookEvery{500};
// A statement that was given up ends in some milliseconds; a server that does not answer is not waited for.
constexpr milliseconds kPatience{3000};

bool IsReadable(int socket, int timeout) {
  pollfd waiting{.fd = socket, .events = POLLIN, .revents = 0};
  return poll(&waiting, 1, timeout) > 0;
}

PostgresRefusal RefusalOf(const PGresult* result) {
  const auto part = [&](int field) {
    const char* text = PQresultErrorField(result, field);
    return text == nullptr ? std::string() : text;
  };
  const std::string message = part(PG_DIAG_MESSAGE_PRIMARY);
  return {part(PG_DIAG_SQLSTATE),       message.empty() ? PQresultErrorMessage(result) : message,
          part(PG_DIAG_MESSAGE_DETAIL), part(PG_DIAG_TABLE_NAME),
          part(PG_DIAG_COLUMN_NAME),    part(PG_DIAG_CONSTRAINT_NAME)};
}

}  // namespace

PostgresHandle::PostgresHandle(const PostgresUrl& url, const PostgresSettings& fixed,
                               const session::WhileBusy& while_busy, bool aside)
    : aside(aside), while_busy_(while_busy) {
  connection_ = Connect(url);
  PGconn* connection = connection_.get();
  if (connection == nullptr || PQstatus(connection) != CONNECTION_OK) {
    const std::string why = PQconnectionNeedsPassword(connection) != 0
                                ? "it asks for a password, and there is none in the password file."
                                : Plain(PQerrorMessage(connection));
    throw session::DatabaseError("The database " + url.Shown() + " cannot be reached: " + why, {}, CodeOfState("08001"),
                                 session::DatabaseError::Origin::Connection);
  }
  PQsetNoticeProcessor(
      connection, [](void*, const char*) {}, nullptr);
  cancel_.reset(PQgetCancel(connection), PQfreeCancel);
  // Not together with a statement: some hold from the next transaction on.
  Run(fixed, "", "");
}

PostgresHandle::~PostgresHandle() = default;

PostgresHandle::Connection PostgresHandle::Connect(const PostgresUrl& url) const {
  std::packaged_task<Connection()> connect([options = url.options] {
    std::vector<const char*> names;
    std::vector<const char*> values;
    for (const auto& [name, value] : options) {
      names.push_back(name.c_str());
      values.push_back(value.c_str());
    }
    names.push_back(nullptr);
    values.push_back(nullptr);
    return Connection(PQconnectdbParams(names.data(), values.data(), 0));
  });
  auto connected = connect.get_future();
  if (!while_busy_) {
    connect();
    return connected.get();
  }
  // libpq waits for a server that does not answer; on a thread of its own, so that a person can give that up. The
  // thread then ends by itself.
  std::thread(std::move(connect)).detach();
  const std::shared_ptr<void> done(nullptr, [this](void*) {
    if (!aside) {
      while_busy_(session::Busy::Done);
    }
  });
  while (connected.wait_for(kBusyEvery) != std::future_status::ready) {
    if (while_busy_(session::Busy::Running)) {
      throw session::DatabaseError("The database " + url.Shown() + " was not waited for.", {}, CodeOfState("08001"),
                                   session::DatabaseError::Origin::Connection);
    }
  }
  return connected.get();
}

bool PostgresHandle::IsAlive() {
  PGconn* connection = connection_.get();
  // Between statements a server speaks to say good-bye.
  if (PQstatus(connection) == CONNECTION_OK && IsReadable(PQsocket(connection), 0)) {
    PQconsumeInput(connection);
    // What it said at the end is read like a notice; behind it the stream ends.
    if (PQstatus(connection) == CONNECTION_OK && IsReadable(PQsocket(connection), 0)) {
      PQconsumeInput(connection);
    }
  }
  return PQstatus(connection) == CONNECTION_OK;
}

std::string_view PostgresHandle::Parameter(const char* name) const {
  const char* value = PQparameterStatus(connection_.get(), name);
  return value == nullptr ? std::string_view() : std::string_view(value);
}

std::string PostgresHandle::Missing(const PostgresSettings& settings) {
  std::string missing;
  sending_.clear();
  for (const auto& [name, value] : settings) {
    if (const auto known = set_.find(name); known != set_.end() && known->second == value) {
      continue;
    }
    char* literal = PQescapeLiteral(connection_.get(), value.c_str(), value.size());
    if (literal == nullptr) {
      Lose();
    }
    missing += (missing.empty() ? "SELECT set_config('" : ", set_config('") + name + "', " + literal + ", false)";
    PQfreemem(literal);
    sending_[name] = value;
  }
  return missing.empty() ? missing : missing + ";";
}

void PostgresHandle::Send(const PostgresSettings& settings, const std::string& batch, const std::string& statement) {
  statement_ = statement;
  AwaitCancel();
  const std::string text = Missing(settings) + batch;
  skipping_ = !sending_.empty();
  given_up_ = waiting_ = false;
  sent_ = Clock::now();
  next_call_ = sent_ + kBusyEvery;
  next_look_ = sent_ + kLookEvery;
  end_of_patience_ = Clock::time_point::max();
  row_by_row_ = false;
  under_way_ = true;
  Resume(true);
  if (PQsendQuery(connection_.get(), text.c_str()) == 0) {
    Lose();
  }
}

void PostgresHandle::RowByRow() {
  PQsetSingleRowMode(connection_.get());
  row_by_row_ = true;
}

void PostgresHandle::Resume(bool running) {
  const std::lock_guard lock(interrupting_);
  running_ = running && !undisturbed;
}

PostgresResult PostgresHandle::Next() {
  Resume(true);
  while (true) {
    Await();
    PostgresResult result(PQgetResult(connection_.get()));
    if (result == nullptr) {
      EndStatement();
      return nullptr;
    }
    switch (PQresultStatus(result.get())) {
      case PGRES_FATAL_ERROR:
      case PGRES_NONFATAL_ERROR:
      case PGRES_BAD_RESPONSE: {
        const session::DatabaseError refusal = Refused(RefusalOf(result.get()), statement_);
        ForgetSending();
        Abandon();
        throw session::DatabaseError(refusal);
      }
      case PGRES_COPY_IN:
      case PGRES_COPY_OUT:
      case PGRES_COPY_BOTH:
        connection_.reset();
        EndStatement();
        throw session::DatabaseError("Nothing can be copied to or from this program.", statement_, 0);
      default:
        break;
    }
    if (!skipping_) {
      Resume(!row_by_row_);
      return result;
    }
    skipping_ = PQresultStatus(result.get()) == PGRES_SINGLE_TUPLE;
  }
}

PostgresResult PostgresHandle::Run(const PostgresSettings& settings, const std::string& batch,
                                   const std::string& statement) {
  Send(settings, batch, statement);
  PostgresResult rows;
  while (PostgresResult result = Next()) {
    if (PQresultStatus(result.get()) == PGRES_TUPLES_OK) {
      rows = std::move(result);
    }
  }
  return rows;
}

// Whether that was all.
bool PostgresHandle::ReadWhatHasCome() {
  PGconn* connection = connection_.get();
  // A few more rows are read as soon as a server is told to stop.
  constexpr int kFew = 1000;
  for (int i = 0; i < kFew; ++i) {
    if (PQisBusy(connection) != 0 &&
        (!IsReadable(PQsocket(connection), 0) || PQconsumeInput(connection) == 0 || PQisBusy(connection) != 0)) {
      return PQstatus(connection) != CONNECTION_OK;
    }
    const PostgresResult result(PQgetResult(connection));
    if (result == nullptr) {
      return true;
    }
    if (PQresultStatus(result.get()) == PGRES_FATAL_ERROR) {
      ForgetSending();
    }
  }
  return false;
}

bool PostgresHandle::IsOver() noexcept {
  if (under_way_ && ReadWhatHasCome()) {
    EndStatement();
  }
  return !under_way_;
}

void PostgresHandle::Abandon() noexcept {
  if (IsOver()) {
    return;
  }
  Cancel();
  const auto end = Clock::now() + kPatience;
  PGconn* connection = connection_.get();
  while (!ReadWhatHasCome()) {
    if (Clock::now() > end) {
      connection_.reset();
      break;
    }
    if (PQisBusy(connection) != 0) {
      IsReadable(PQsocket(connection), static_cast<int>(kBusyEvery.count()));
    }
  }
  EndStatement();
}

void PostgresHandle::Await() {
  PGconn* connection = connection_.get();
  while (PQisBusy(connection) != 0) {
    const bool watched = while_busy_ != nullptr || given_up_ || longest;
    const bool readable = IsReadable(PQsocket(connection), watched ? static_cast<int>(kBusyEvery.count()) : -1);
    if (readable && PQconsumeInput(connection) == 0) {
      return;  // the next result says why
    }
    if (const auto now = Clock::now(); now >= next_call_ && PQisBusy(connection) != 0) {
      Tell(now);
    }
  }
}

void PostgresHandle::Tell(Clock::time_point now) {
  next_call_ = now + kBusyEvery;
  if (given_up_) {
    if (now > end_of_patience_) {
      connection_.reset();
      Lose();
    }
    return;
  }
  if (longest && now > sent_ + *longest) {
    connection_.reset();
    Lose();
  }
  if (!while_busy_) {
    return;
  }
  if (now >= next_look_) {
    next_look_ = now + kLookEvery;
    waiting_ = waits_for_another && waits_for_another();
  }
  told_ = true;
  try {
    given_up_ = while_busy_(waiting_ ? session::Busy::Waiting : session::Busy::Running);
  } catch (...) {
    Abandon();
    throw;
  }
  if (given_up_) {
    end_of_patience_ = now + kPatience;
    Cancel();
  }
}

// A batch that fails takes its settings back.
void PostgresHandle::ForgetSending() {
  for (const auto& [name, value] : sending_) {
    set_.erase(name);
  }
  sending_.clear();
}

void PostgresHandle::EndStatement() {
  under_way_ = false;
  Resume(false);
  for (const auto& [name, value] : std::exchange(sending_, {})) {
    set_[name] = value;
  }
  if (std::exchange(told_, false) && while_busy_ && !aside) {
    while_busy_(session::Busy::Done);
  }
}

void PostgresHandle::Cancel() {
  const std::lock_guard lock(interrupting_);
  SendCancel();
}

// libpq waits for the server to take it; on a thread of its own, as it may not.
void PostgresHandle::SendCancel() {
  if (cancelling_.valid() && cancelling_.wait_for(milliseconds(0)) != std::future_status::ready) {
    return;
  }
  std::packaged_task<void()> cancel([order = cancel_] {
    std::array<char, 256> why{};
    PQcancel(order.get(), why.data(), static_cast<int>(why.size()));
  });
  cancelling_ = cancel.get_future();
  std::thread(std::move(cancel)).detach();
}

// One that comes late would end the next statement.
void PostgresHandle::AwaitCancel() {
  std::future<void> cancelling;
  {
    const std::lock_guard lock(interrupting_);
    cancelling = std::move(cancelling_);
  }
  if (cancelling.valid() && cancelling.wait_for(kPatience) != std::future_status::ready) {
    connection_.reset();
    Lose();
  }
}

void PostgresHandle::Interrupt() {
  const std::lock_guard lock(interrupting_);
  if (running_) {
    SendCancel();
  }
}

void PostgresHandle::Lose() {
  const std::string why = connection_ == nullptr ? "The server does not answer." : PQerrorMessage(connection_.get());
  ForgetSending();
  EndStatement();
  throw Loss(why, statement_);
}

}  // namespace host
