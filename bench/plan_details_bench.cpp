// What opening the details of a plan of 2,000 codes costs, until the first page is seen, and scrolling through all of
// it; beside the statement that reads them, bare.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <vector>

#include "entry/form_catalog.h"
#include "forms/grid.h"
#include "recording.h"

namespace {

constexpr int kCodes = 2000;
constexpr int kPage = 30;
constexpr int kAllRows = 1 << 30;

void Paint(forms::Grid& grid, int from, int to) {
  for (int row = from; row < std::min(to, grid.RowCount()); ++row) {
    for (const int column : grid.VisibleColumns()) {
      benchmark::DoNotOptimize(grid.Cell(row, column));
    }
  }
}

void PlanDetails(benchmark::State& state) {
  bench::Subject subject(200);
  subject.Run("INSERT INTO GroPlaTable (GroPlaInd, GroPlaInsID, GroPlaGroNum, OfficeID) VALUES (99999, 1, 'MANY', 1)");
  subject.Run("INSERT INTO IPTable (IPInsCoID, IPGroNum, IPCod, OfficeID) VALUES (0, 'GLOBAL', 'D0', 1)");
  subject.Run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<" + std::to_string(kCodes) +
              ") INSERT INTO IPTable (IPInsCoID, IPGroNum, IPPlaNam, IPCod, IPDes, IPCodCat, IPPFee, IPPCov, IPPMax, "
              "IPPDedApp, IPSFee, IPSCov, IPSMax, IPSDedApp, OfficeID) SELECT 1, 'MANY', 'Gold', 'D' || (100000+i), "
              "'A treatment of this plan', 'Category ' || (i%20), i, 80, i*2, 'Y', i, 50, i*2, 'N', 1 FROM n");
  bench::Bare engine(subject.Url());
  bench::QuickUser user;
  const auto screens = entry::MakeScreens(subject.Session(), user);
  std::vector<double> opening;
  std::vector<double> bare;
  double scrolling = 0;
  for (auto _ : state) {
    const auto form = entry::MakeForm("InsPln_Frm", {subject.Session(), user, *screens});
    form->Properties.at("GroupID").set("99999");
    subject.Session().prepared.clear();
    subject.Session().holding = 0;
    const auto start = bench::Clock::now();
    user.acts = [&](forms::Form& shown) {
      auto& grid = dynamic_cast<forms::Grid&>(*shown.Find("ucPlanDetails1.TDBG"));
      Paint(grid, 0, kPage);
      opening.push_back(std::chrono::duration<double>(bench::Clock::now() - start).count() - subject.Session().holding);
      if (grid.RowCount() != kCodes) {
        throw std::logic_error(std::to_string(grid.RowCount()) + " codes were read");
      }
      scrolling += bench::Time([&] { Paint(grid, 0, kCodes); });
    };
    user.Show(*form);
    const auto read = std::ranges::find_if(subject.Session().prepared, [](const std::string& sql) {
      return sql.find("'MANY'") != std::string::npos && sql.find("SELECT *") != std::string::npos;
    });
    bare.push_back(bench::Time([&] { engine.Step(*read, kAllRows); }));
  }
  state.counters["open_ms"] = 1e3 * bench::Median(opening);
  state.counters["bare_ms"] = 1e3 * bench::Median(bare);
  state.counters["open_to_bare"] = bench::Median(opening) / bench::Median(bare);
  state.counters["page_ms"] = 1e3 * scrolling / static_cast<double>(state.iterations()) / kCodes * kPage;
  state.counters["statements"] = static_cast<double>(subject.Session().prepared.size());
}
BENCHMARK(PlanDetails)->Iterations(50)->Unit(benchmark::kMillisecond);

}  // namespace
