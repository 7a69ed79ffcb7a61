// What opening and saving the patient quick screen costs, in statements and beside the same statements run bare on a
// twin of the practice; and what holding the record takes of the opening.
#include <benchmark/benchmark.h>

#include "bare.h"
#include "entry/form_catalog.h"
#include "people/patScreen_SM.h"
#include "recording.h"

namespace {

constexpr int kAllRows = 1 << 30;

double RunBare(bench::Bare& engine, const std::vector<std::string>& statements) {
  return bench::Time([&] {
    for (const std::string& statement : statements) {
      engine.Step(statement, kAllRows);
    }
  });
}

void OpenAndSave(benchmark::State& state) {
  bench::Subject subject(2000);
  const bench::Subject twin(2000);
  bench::Bare engine(twin.Url());
  bench::PreparedSession& session = subject.Session();
  bench::QuickUser user;
  const auto screens = entry::MakeScreens(session, user);
  double opening = 0;
  double saving = 0;
  double opening_bare = 0;
  double saving_bare = 0;
  std::size_t open_statements = 0;
  std::size_t save_statements = 0;
  int round = 0;
  for (auto _ : state) {
    people::patScreen_SM screen({session, user, *screens});
    screen.Opened = session::Opening::Existing(session::RecordKind::Patient, 1 + round % 2000);
    session.prepared.clear();
    opening += bench::Time([&] { screen.Load(); });
    const auto opened = std::exchange(session.prepared, {});
    screen.Text1[people::patScreen_SM::kAddress2].DoType("Apt " + std::to_string(++round));
    saving += bench::Time([&] { screen.DialogButtons1.OK.DoClick(); });
    const auto saved = std::exchange(session.prepared, {});
    open_statements = opened.size();
    save_statements = saved.size();
    opening_bare += RunBare(engine, opened);
    saving_bare += RunBare(engine, saved);
  }
  state.counters["open_statements"] = static_cast<double>(open_statements);
  state.counters["save_statements"] = static_cast<double>(save_statements);
  state.counters["open_to_bare"] = opening / opening_bare;
  state.counters["hold_to_bare"] = session.holding / opening_bare;
  state.counters["save_to_bare"] = saving / saving_bare;
}
BENCHMARK(OpenAndSave);

}  // namespace
