#pragma once

#include <libpq-fe.h>

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "database/postgres/postgres_session.h"
#include "database/postgres/postgres_url.h"
#include "session/connection.h"

namespace host {

struct ClearResult {
  void operator()(PGresult* result) const { PQclear(result); }
};
using PostgresResult = std::unique_ptr<PGresult, ClearResult>;

// One of libpq's connections. Failures are session::DatabaseError; where the connection is lost their origin says so.
class PostgresHandle {
 public:
  // `fixed` is set once; `while_busy` outlives the handle. The first connection may be refused.
  PostgresHandle(const PostgresUrl& url, const PostgresSettings& fixed, const session::WhileBusy& while_busy,
                 bool aside = false);
  PostgresHandle(const PostgresHandle&) = delete;
  PostgresHandle& operator=(const PostgresHandle&) = delete;
  ~PostgresHandle();

  // As far as can be seen without asking the server.
  bool IsAlive();
  // What the server tells of itself: "server_encoding", "in_hot_standby".
  std::string_view Parameter(const char* name) const;
  int Process() const { return PQbackendPID(connection_.get()); }

  // Sends a batch, with the settings that the server does not have yet before it. `statement` is what failures name.
  void Send(const PostgresSettings& settings, const std::string& batch, const std::string& statement);
  // The next result of what was sent, or the next row after `RowByRow`; null at the end. A failure ends the batch.
  PostgresResult Next();
  void RowByRow();
  // Whether everything has been read, or has come and need not be.
  bool IsOver() noexcept;
  // Gives up what has not been read; without a word.
  void Abandon() noexcept;
  // Sends a batch and reads it whole: the last rows that it has, or null.
  PostgresResult Run(const PostgresSettings& settings, const std::string& batch, const std::string& statement);
  // After a rollback nobody knows which settings have stayed.
  void ForgetSettings() { set_.clear(); }

  // Whether the statement waits for another program; asked now and then while it runs. Runs nothing here.
  std::function<bool()> waits_for_another;
  // Of statements that take a moment: after so long the server is taken to be lost.
  std::optional<std::chrono::milliseconds> longest;
  // What runs puts right what was ended: Interrupt leaves it alone.
  bool undisturbed = false;
  // Something else goes on when a statement of this one is done: `Busy::Done` is not told.
  bool aside;

  // Ends the statement that is running, from whichever thread. Between its rows, when they are read one by one, it is
  // not.
  void Interrupt();

 private:
  struct Finish {
    void operator()(PGconn* connection) const { PQfinish(connection); }
  };
  using Connection = std::unique_ptr<PGconn, Finish>;
  using Clock = std::chrono::steady_clock;

  Connection Connect(const PostgresUrl& url) const;

  std::string Missing(const PostgresSettings& settings);
  void Await();
  // Asks whoever waits for the statement; gives it up when they do.
  void Tell(Clock::time_point now);
  bool ReadWhatHasCome();
  void ForgetSending();
  void Resume(bool running);
  void EndStatement();
  void Cancel();
  void SendCancel();
  void AwaitCancel();
  [[noreturn]] void Lose();

  Connection connection_;  // null when it was given up
  std::shared_ptr<PGcancel> cancel_;
  const session::WhileBusy& while_busy_;
  PostgresSettings set_;  // what the server is known to have

  // Of the statement that is under way.
  std::string statement_;
  PostgresSettings sending_;  // what the server has when it succeeds
  bool under_way_ = false;    // until its last result is read
  bool row_by_row_ = false;
  bool skipping_ = false;  // the result of setting them is to come
  bool given_up_ = false;
  bool waiting_ = false;  // for another program
  bool told_ = false;     // `Busy::Done` is due
  Clock::time_point sent_;
  Clock::time_point next_call_;  // of while_busy_
  Clock::time_point next_look_;  // at who is waited for
  Clock::time_point end_of_patience_;

  std::mutex interrupting_;  // Interrupt comes from other threads
  bool running_ = false;
  std::future<void> cancelling_;
};

}  // namespace host
