// What a search at the front desk costs in practices of two sizes, from the pause after the last key until
// the first rows are listed, beside the same statements bare, stepped as far; and what a key itself costs.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

#include "bare.h"
#include "entry/form_catalog.h"
#include "home/frmHome.h"
#include "recording.h"

namespace {

// One at a time: a million patients take a gigabyte.
bench::Subject& PracticeOf(std::int32_t patients) {
  static std::int32_t made = 0;
  static std::unique_ptr<bench::Subject> subject;
  if (std::exchange(made, patients) != patients) {
    subject.reset();
    subject = std::make_unique<bench::Subject>(patients);
  }
  return *subject;
}

// A name, a number and a day of which there are some.
struct Sample {
  std::string last, first, phone, birth;
};

Sample SampleOf(session::Connection& connection) {
  const auto row = connection.Execute("SELECT pLASNAM, pFIRNAM, pHOMPHO, pBIRDAT FROM PATable WHERE pID=50000");
  const forms::Date birth = forms::DateOf(*session::ToDateTime(row->Get(3)));
  return {session::ToText(row->Get(0)), session::ToText(row->Get(1)), session::ToText(row->Get(2)),
          forms::FormatShortDate(birth)};
}

enum Way : std::int64_t {
  kLetter,
  kLastName,
  kFirstName,
  kBothNames,
  kCommaNames,
  kAccents,
  kPhone,
  kLocalPhone,
  kBirth,
  kId
};

std::string TypedFor(Way way, const Sample& sample) {
  switch (way) {
    case kLetter:
      return sample.last.substr(0, 1);
    case kLastName:
      return sample.last;
    case kFirstName:
      return sample.first;
    case kBothNames:
      return sample.first + " " + sample.last;
    case kCommaNames:
      return sample.last + ", " + sample.first.substr(0, 2);
    case kAccents:
      return "núñ";
    case kPhone:
      return sample.phone;
    case kLocalPhone:
      return sample.phone.substr(6);
    case kBirth:
      return sample.birth;
    case kId:
      return "50000";
  }
  return {};
}

void Search(benchmark::State& state) {
  bench::Subject& subject = PracticeOf(static_cast<std::int32_t>(state.range(0)));
  bench::PreparedSession& session = subject.Session();
  bench::Bare engine(subject.Url());
  bench::QuickUser user;
  const auto screens = entry::MakeScreens(session, user);
  host::frmHome home({session, user, *screens}, "Bench");
  home.Load();
  const std::string typed = TypedFor(static_cast<Way>(state.range(1)), SampleOf(session.Connection()));
  std::vector<double> searching;
  std::vector<double> bare;
  std::vector<double> key;
  int rows = 0;
  const auto pause = [&home] {
    while (home.DoIdle()) {
    }
  };
  for (auto _ : state) {
    home.ShowOpenedLast();
    pause();
    session.prepared.clear();
    key.push_back(bench::Time([&] { home.txtSearch.DoType(typed); }) / static_cast<double>(typed.size()));
    searching.push_back(bench::Time([&] { home.DoIdle(); }));
    rows = home.grdPatients.RowCount();
    const auto statements = std::exchange(session.prepared, {});
    bare.push_back(bench::Time([&] {
      int left = rows;
      for (const std::string& statement : statements) {
        left -= engine.Step(statement, std::max(1, left));
        engine.GiveUpRest();
      }
    }));
    pause();
  }
  state.SetLabel(typed);
  state.counters["rows"] = rows;
  state.counters["milliseconds"] = 1e3 * bench::Median(searching);
  state.counters["to_bare"] = bench::Median(searching) / bench::Median(bare);
  state.counters["key_microseconds"] = 1e6 * bench::Median(key);
}
BENCHMARK(Search)
    ->ArgsProduct({{100000, bench::Many()}, benchmark::CreateDenseRange(kLetter, kId, 1)})
    ->Iterations(50)
    ->Unit(benchmark::kMillisecond);

}  // namespace
