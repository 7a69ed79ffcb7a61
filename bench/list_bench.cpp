// What the lists cost in a practice of a million persons, beside the same statements bare: opening each kind, filtering
// from the start and anywhere, sorting by every header, reading to the end, and ending a search by the next key. The
// rows compared are those of the first page; `to_bare` is the statement stepped as far, `to_limited` the same with a
// LIMIT of one page, which lets the engine sort a page alone. A word on the command line names the file of the practice
// of a million, which is kept for the next time, or the URL of a database for it.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <map>

#include "bare.h"
#include "entry/form_catalog.h"
#include "entry/look_up_list.h"
#include "forms/check_box.h"
#include "forms/grid.h"
#include "recording.h"

namespace {

const std::int32_t kPersons = bench::Many();
constexpr std::int32_t kFew = 2000;
constexpr int kAll = 1 << 30;

std::string kept;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): as the person named it

bench::Subject& PracticeOf(std::int32_t patients) {
  static std::map<std::int32_t, std::unique_ptr<bench::Subject>> made;
  auto& subject = made[patients];
  if (subject == nullptr) {
    subject = std::make_unique<bench::Subject>(patients, patients == kPersons ? kept : std::string());
  }
  return *subject;
}

// A list that is open, in front of a person who acts on it.
class OpenList {
 public:
  OpenList(bench::Subject& subject, session::LookUpListTypes type) : subject_(subject), list_(user_) {
    list_.SetPV(std::shared_ptr<bench::PreparedSession>(&subject.Session(), [](auto*) {}));
    list_.ListType = type;
  }
  OpenList(const OpenList&) = delete;
  OpenList& operator=(const OpenList&) = delete;
  ~OpenList() { list_.SetPV(nullptr); }

  // Seconds until its first rows are there.
  double Show(const std::function<void(forms::Form&, forms::Grid&)>& acts) {
    double seconds = 0;
    subject_.Session().prepared.clear();
    const auto start = bench::Clock::now();
    user_.acts = [&](forms::Form& form) {
      seconds = std::chrono::duration<double>(bench::Clock::now() - start).count();
      acts(form, dynamic_cast<forms::Grid&>(*form.Find("DotNetGrid")));
      form.DoClose();
    };
    list_.ShowList();
    return seconds;
  }

  // Since the last time, or since it was opened.
  std::vector<std::string> Statements() { return std::exchange(subject_.Session().prepared, {}); }

 private:
  bench::Subject& subject_;
  bench::QuickUser user_;
  entry::LookUpList list_;
};

// The times of one thing through the list and bare.
struct Times {
  std::vector<double> list, bare, limited;
  int rows = 0;

  void TakeBare(bench::Bare& engine, std::vector<std::string> statements, int shown) {
    rows = shown;
    const int page = std::max(1, shown);
    const auto step = [&] {
      const double seconds = bench::Time([&] {
        for (const std::string& statement : statements) {
          engine.Step(statement, page);
        }
      });
      engine.GiveUpRest();
      return seconds;
    };
    bare.push_back(step());
    statements.back() += " LIMIT " + std::to_string(page);
    limited.push_back(step());
  }
  void Report(benchmark::State& state) const {
    state.counters["rows"] = rows;
    state.counters["milliseconds"] = 1e3 * bench::Median(list);
    state.counters["to_bare"] = bench::Median(list) / bench::Median(bare);
    state.counters["to_limited"] = bench::Median(list) / bench::Median(limited);
  }
};

double FirstPage(benchmark::State& state, bench::Subject& subject, session::LookUpListTypes type) {
  bench::Bare engine(subject.Url());
  OpenList list(subject, type);
  Times times;
  for (auto _ : state) {
    int shown = 0;
    times.list.push_back(list.Show([&](forms::Form&, forms::Grid& grid) { shown = grid.RowCount(); }));
    times.TakeBare(engine, list.Statements(), shown);
  }
  times.Report(state);
  return bench::Median(times.list);
}

void Open(benchmark::State& state) {
  const auto type = static_cast<session::LookUpListTypes>(state.range(0));
  const double many = FirstPage(state, PracticeOf(kPersons), type);
  bench::Subject& small = PracticeOf(kFew);
  OpenList list(small, type);
  std::vector<double> few(30);
  std::ranges::generate(few, [&] { return list.Show([](forms::Form&, forms::Grid&) {}); });
  state.counters["to_2000"] = many / bench::Median(few);
}
BENCHMARK(Open)->DenseRange(session::lulProvider, session::lulCapPlans)->Iterations(30)->Unit(benchmark::kMillisecond);

struct Filtered {
  const char* caption;
  const char* text;
  bool anywhere;
};
constexpr std::array kFilters = {
    Filtered{"Last Name", "Smi", false},     Filtered{"Name", "Smith, J", false}, Filtered{"First Name", "Jo", false},
    Filtered{"ID Num", "5000", false},       Filtered{"City", "Spr", false},      Filtered{"Last Name", "mit", true},
    Filtered{"Last Name", "qqq", true},      Filtered{"Name", "mit, oh", true},   Filtered{"Home Phone", "1234", true},
    Filtered{"Address 1", "Maple Av", true}, Filtered{"ID Num", "5000", true}};

void Filter(benchmark::State& state) {
  const Filtered& filter = kFilters.at(static_cast<std::size_t>(state.range(0)));
  bench::Subject& subject = PracticeOf(kPersons);
  bench::Bare engine(subject.Url());
  OpenList list(subject, session::lulFamilyHead);
  Times times;
  for (auto _ : state) {
    list.Show([&](forms::Form& form, forms::Grid& grid) {
      auto& mode = dynamic_cast<forms::OptionButton&>(*form.Find(filter.anywhere ? "optFiltMid" : "optFiltLeft"));
      if (!mode.Value) {
        mode.DoChoose();
      }
      const int column = grid.ColumnIndex(filter.caption);
      list.Statements();
      times.list.push_back(bench::Time([&] { grid.DoFilter(column, filter.text); }));
      times.TakeBare(engine, list.Statements(), grid.RowCount());
    });
  }
  times.Report(state);
  state.SetLabel(std::string(filter.caption) + (filter.anywhere ? " with " : " from ") + filter.text);
}
BENCHMARK(Filter)->DenseRange(0, kFilters.size() - 1)->Iterations(7)->Unit(benchmark::kMillisecond);

void Sort(benchmark::State& state) {
  bench::Subject& subject = PracticeOf(kPersons);
  bench::Bare engine(subject.Url());
  OpenList list(subject, session::lulFamilyHead);
  Times times;
  for (auto _ : state) {
    list.Show([&](forms::Form&, forms::Grid& grid) {
      const int column = static_cast<int>(state.range(0));
      state.SetLabel(grid.Columns.get().at(static_cast<std::size_t>(column)).caption);
      list.Statements();
      times.list.push_back(bench::Time([&] { grid.DoSort(column); }));
      times.TakeBare(engine, list.Statements(), grid.RowCount());
    });
  }
  times.Report(state);
}
BENCHMARK(Sort)->DenseRange(0, 12)->Iterations(5)->Unit(benchmark::kMillisecond);

// To the end and back: every row's text, the memory that it takes, and what was asked of the database.
void ReadAll(benchmark::State& state) {
  bench::Subject& subject = PracticeOf(kPersons);
  bench::Bare engine(subject.Url());
  OpenList list(subject, session::lulFamilyHead);
  for (auto _ : state) {
    const std::size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
    list.Show([&](forms::Form& form, forms::Grid& grid) {
      const std::string statement = list.Statements().back();
      std::size_t text = 0;
      double longest = 0;
      const double seconds = bench::Time([&] {
        for (bool more = true; more;) {
          longest = std::max(longest, bench::Time([&] { more = form.DoIdle(); }));
        }
      });
      const auto columns = static_cast<int>(grid.Columns->size());
      for (int row = grid.RowCount() - 1; row >= 0; --row) {
        for (int column = 0; column < columns; ++column) {
          text += grid.Cell(row, column).size();
        }
      }
      const std::size_t after = mallinfo2().uordblks + mallinfo2().hblkhd;
      state.counters["rows"] = grid.RowCount();
      state.counters["memory_to_text"] = static_cast<double>(after - before) / static_cast<double>(text);
      state.counters["longest_go_milliseconds"] = 1e3 * longest;
      state.counters["statements"] = static_cast<double>(list.Statements().size());
      const int rows_again = grid.RowCount() - engine.Step(statement, kAll);
      state.counters["rows_again"] = rows_again;
      state.counters["to_bare"] = seconds / bench::Time([&] { engine.Step(statement, kAll); });
    });
  }
}
BENCHMARK(ReadAll)->Iterations(1)->Unit(benchmark::kMillisecond);

// A key in the midst of a search: how often the list looks for one, and how long from there to the next statement.
void EndByKey(benchmark::State& state) {
  bench::Subject& subject = PracticeOf(kPersons);
  OpenList list(subject, session::lulFamilyHead);
  double longest_blind = 0;
  std::vector<double> ending;
  for (auto _ : state) {
    list.Show([&](forms::Form& form, forms::Grid& grid) {
      dynamic_cast<forms::OptionButton&>(*form.Find("optFiltMid")).DoChoose();
      const int column = grid.ColumnIndex("Home Phone");
      const auto start = bench::Clock::now();
      auto looked = start;
      grid.TypingAhead = [&] {
        const auto now = bench::Clock::now();
        longest_blind = std::max(longest_blind, std::chrono::duration<double>(now - looked).count());
        looked = now;
        return now - start > std::chrono::milliseconds(100);
      };
      grid.DoFilter(column, "12345");
      grid.TypingAhead = nullptr;
      ending.push_back(std::chrono::duration<double>(bench::Clock::now() - looked).count());
    });
  }
  state.counters["longest_blind_milliseconds"] = 1e3 * longest_blind;
  state.counters["ending_milliseconds"] = 1e3 * bench::Median(ending);
}
BENCHMARK(EndByKey)->Iterations(10)->Unit(benchmark::kMillisecond);

// The hardest case: everybody an employee.
void OpenEverybody(benchmark::State& state) {
  const std::filesystem::path copy = std::filesystem::temp_directory_path() / "list_bench_employees.db";
  if (!bench::OnServer()) {
    std::filesystem::copy_file(PracticeOf(kPersons).Path(), copy, std::filesystem::copy_options::overwrite_existing);
  }
  bench::Subject subject(kPersons, bench::OnServer() ? std::string() : copy.string());
  subject.Run("UPDATE PATable SET pTypEmp='1'");
  FirstPage(state, subject, session::lulEmployee);
  std::filesystem::remove(copy);
}
BENCHMARK(OpenEverybody)->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int count, char** words) {
  benchmark::Initialize(&count, words);
  kept = count > 1 ? words[1] : "";
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
