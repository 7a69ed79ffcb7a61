// What opening the employee list costs beside stepping the rows of its first page, and of the whole list, bare: in
// practices of growing size, and where every person is an employee, the hardest case.
#include <benchmark/benchmark.h>

#include "bare.h"
#include "entry/form_catalog.h"
#include "entry/look_up_list.h"
#include "forms/grid.h"
#include "recording.h"

namespace {

void MeasureList(benchmark::State& state, bench::Subject& subject) {
  bench::Bare engine(subject.Path());
  const auto session = std::shared_ptr<bench::PreparedSession>(&subject.Session(), [](auto*) {});
  bench::QuickUser user;
  entry::LookUpList list(user);
  list.SetPV(session);
  list.ListType = session::lulEmployee;
  int rows_shown = 0;
  double opening = 0;
  double opening_bare = 0;
  double whole = 0;
  double whole_bare = 0;
  int rows_in_all = 0;
  for (auto _ : state) {
    session->prepared.clear();
    bench::Clock::time_point opened;
    const auto start = bench::Clock::now();
    user.acts = [&](forms::Form& form) {
      opened = bench::Clock::now();
      auto& grid = dynamic_cast<forms::Grid&>(*form.Find("DotNetGrid"));
      rows_shown = grid.RowCount();
      while (form.DoIdle()) {
      }
      rows_in_all = grid.RowCount();
      whole += std::chrono::duration<double>(bench::Clock::now() - start).count();
      form.DoClose();
    };
    list.ShowList();
    opening += std::chrono::duration<double>(opened - start).count();
    opening_bare += bench::Time([&] { engine.Step(session->prepared.front(), rows_shown); });
    whole_bare += bench::Time([&] { engine.Step(session->prepared.front(), 1 << 30); });
  }
  list.SetPV(nullptr);
  state.counters["rows"] = rows_in_all;
  state.counters["first_page_rows"] = rows_shown;
  state.counters["first_page_seconds"] = opening / static_cast<double>(state.iterations());
  state.counters["first_page_to_bare"] = opening / opening_bare;
  state.counters["whole_to_bare"] = whole / whole_bare;
}
void OpenEmployeeList(benchmark::State& state) {
  bench::Subject subject(static_cast<std::int32_t>(state.range(0)));
  MeasureList(state, subject);
}
BENCHMARK(OpenEmployeeList)->Arg(100)->Arg(10000)->Arg(1000000)->Iterations(20)->Unit(benchmark::kMillisecond);

void OpenListOfEmployeesOnly(benchmark::State& state) {
  bench::Subject subject(static_cast<std::int32_t>(state.range(0)));
  subject.Run("UPDATE PATable SET pTypEmp='1'");
  MeasureList(state, subject);
}
BENCHMARK(OpenListOfEmployeesOnly)->Arg(100)->Arg(10000)->Iterations(20)->Unit(benchmark::kMillisecond);

}  // namespace
