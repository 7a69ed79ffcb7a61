// What opening a patient's coverages costs in a practice of a million patients, beside the same statements run bare. A
// word on the command line names the file of the practice, which is made there when it is not there, and kept.
#include <benchmark/benchmark.h>

#include <algorithm>

#include "entry/form_catalog.h"
#include "insurance/frmEditCoverage.h"
#include "recording.h"

namespace {

const std::int32_t kPatients = bench::Many();
constexpr int kAllRows = 1 << 30;

std::string kept;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): as the person named it

// Covered patients from all over the practice, each opened once before: both sides find what they read at hand.
void OpenCoverages(benchmark::State& state) {
  bench::Subject subject(kPatients, kept);
  bench::PreparedSession& session = subject.Session();
  bench::QuickUser user;
  const auto screens = entry::MakeScreens(session, user);
  bench::Bare engine(subject.Url());
  std::vector<double> opening;
  std::vector<double> bare;
  std::size_t statements = 0;
  std::int32_t patient = 0;
  for (auto _ : state) {
    const auto next = session.Connection().Execute("SELECT MIN(CovPatID) FROM CovTable WHERE CovFla=0 AND CovPatID>" +
                                                   std::to_string(patient + kPatients / 200 - 1));
    patient = session::ToId(next->Get(0));
    {
      insurance::frmEditCoverage before({session, user, *screens});
      before.PatientID = patient;
      before.Load();
    }
    insurance::frmEditCoverage screen({session, user, *screens});
    screen.PatientID = patient;
    session.prepared.clear();
    opening.push_back(bench::Time([&] { screen.Load(); }));
    if (screen.Closed() || screen.ucEditCoverage1.CoverageID() == 0) {
      state.SkipWithError("no coverage was shown");
      return;
    }
    const auto prepared = std::exchange(session.prepared, {});
    statements = prepared.size();
    bare.push_back(bench::Time([&] {
      for (const std::string& statement : prepared) {
        engine.Step(statement, kAllRows);
      }
    }));
  }
  state.counters["statements"] = static_cast<double>(statements);
  state.counters["open_ms"] = 1e3 * bench::Median(opening);
  state.counters["open_to_bare"] = bench::Median(opening) / bench::Median(bare);
}
BENCHMARK(OpenCoverages)->Iterations(190);

}  // namespace

int main(int count, char** words) {
  benchmark::Initialize(&count, words);
  kept = count > 1 ? words[1] : "";
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
