// What replacing a carrier with some 300 and with 10,000 live holdings costs: statements for each holding, time beside
// the same statements run bare on a twin of the practice, and how long the person at most sees no progress. The
// practices are made in the folder for temporary files: on a disk every statement that writes waits for it.
#include <benchmark/benchmark.h>

#include <ctime>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "bare.h"
#include "data/shared_records.h"
#include "editing/replacement.h"
#include "entry/form_catalog.h"
#include "forms/button.h"
#include "forms/dialog_buttons.h"
#include "forms/grid.h"
#include "practice/practice_log.h"
#include "recording.h"

namespace {

using data::SharedRecord;

constexpr int kAllRows = 1 << 30;

// Keeps what logging prepares as well.
class LoggingSession : public bench::PreparedSession {
 public:
  using PreparedSession::PreparedSession;

  void Log(const session::LogEntry& entry) override { host::AppendToLog(*this, {entry, UserName(), Now()}); }
};

// Chooses a carrier by name, and looks at the clock whenever he is told of progress.
class Watcher : public bench::QuickUser {
 public:
  explicit Watcher(std::vector<std::string>& prepared) {
    acts = [this, &prepared](forms::Form& list) {
      auto& grid = dynamic_cast<forms::Grid&>(*list.Find("DotNetGrid"));
      for (int row = 0; row < grid.RowCount(); ++row) {
        if (grid.Rows.get()->Text(row, grid.ColumnIndex("Insurance Company")) == choice) {
          grid.DoRow(row);
        }
      }
      prepared.clear();
      longest_silence = 0;
      told_at_ = started = bench::Clock::now();
      worked = std::clock();
      dynamic_cast<forms::DialogButtons&>(*list.Find("DialogButtons1")).OK.DoClick();
    };
  }

  void Wait(std::string_view, double done) override {
    const auto now = bench::Clock::now();
    longest_silence = std::max(longest_silence, std::chrono::duration<double>(now - told_at_).count());
    told_at_ = now;
    times_told += done >= 0 ? 1 : 0;
  }

  std::string choice;
  bench::Clock::time_point started;
  std::clock_t worked = 0;
  double longest_silence = 0;
  int times_told = 0;

 private:
  bench::Clock::time_point told_at_;
};

std::string NameOf(session::Session& session, std::int32_t carrier) {
  return session::ToText(session.Connection()
                             .Execute("SELECT InsCoNam FROM InsCoTable WHERE InsCoInd=" + std::to_string(carrier))
                             ->Get(0));
}

// Back and forth between the first two carriers, to the first of which all plans belong.
void ReplaceCarrier(benchmark::State& state) {
  bench::Subject subject(static_cast<std::int32_t>(state.range(0)));
  subject.Run("UPDATE ELTable SET elInsID=1 WHERE elGroID<>0");
  subject.Run("UPDATE GroPlaTable SET GroPlaInsID=1");
  const bench::Subject twin(bench::Subject::CopyOf{subject});
  bench::Bare engine(twin.Url());
  host::Practice practice(subject.Url());
  LoggingSession session(practice, practice.Office(), host::LoginRights("bench", true), host::ThisMachine({}, {}));
  Watcher user(session.prepared);
  const auto screens = entry::MakeScreens(session, user);
  const data::SharedRecords records(session);
  std::int32_t from = 1;
  std::int32_t to = 2;
  const int holdings = records.Uses(SharedRecord::Carrier, from);
  std::size_t statements = 0;
  double replacing = 0;
  double replacing_worked = 0;
  double bare = 0;
  double bare_worked = 0;
  for (auto _ : state) {
    user.choice = NameOf(session, to);
    const editing::RecordHold hold(session, "InsCoTable", from);
    if (!editing::ReplaceSharedRecord({session, user, *screens}, SharedRecord::Carrier, from, NameOf(session, from),
                                      hold)) {
      throw std::logic_error("nothing was replaced: " + user.told);
    }
    replacing += std::chrono::duration<double>(bench::Clock::now() - user.started).count();
    replacing_worked += static_cast<double>(std::clock() - user.worked);
    const std::vector<std::string> prepared = std::exchange(session.prepared, {});
    statements += prepared.size();
    const std::clock_t worked = std::clock();
    bare += bench::Time([&] {
      for (const std::string& statement : prepared) {
        engine.Step(statement, kAllRows);
      }
    });
    bare_worked += static_cast<double>(std::clock() - worked);
    std::swap(from, to);
    if (records.Uses(SharedRecord::Carrier, from) != holdings) {
      throw std::logic_error("not all holdings were moved");
    }
  }
  const auto rounds = static_cast<double>(state.iterations());
  const auto count = [&](const char* name, double value) { state.counters[name] = value; };
  count("holdings", holdings);
  count("statements_a_holding", static_cast<double>(statements) / rounds / holdings);
  count("seconds", replacing / rounds);
  count("worked_ms_a_holding", 1e3 * replacing_worked / CLOCKS_PER_SEC / rounds / holdings);
  count("to_bare", replacing / bare);
  count("worked_to_bare", replacing_worked / bare_worked);
  count("told_a_holding", user.times_told / rounds / holdings);
  count("longest_silence_ms", 1e3 * user.longest_silence);
}
// By patients.
BENCHMARK(ReplaceCarrier)->Arg(1000)->Arg(30300)->Iterations(2);

}  // namespace
