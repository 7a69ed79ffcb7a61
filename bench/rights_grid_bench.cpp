// What the rights of a login cost on the employee screen in an office with 300 rights and five locations: opening the
// grid at one location, giving all rights at all locations, and saving them; beside the same statements bare.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bare.h"
#include "entry/form_catalog.h"
#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
#include "forms/grid.h"
#include "forms/panels.h"
#include "recording.h"

namespace {

constexpr int kRights = 300;
constexpr int kMoreLocations = 2;
constexpr int kAllRows = 1 << 30;

// A suite with many rights.
class ManyRights : public bench::PreparedSession {
 public:
  using PreparedSession::PreparedSession;

  std::vector<session::Right> RightsCatalogue() const override {
    std::vector<session::Right> rights = PreparedSession::RightsCatalogue();
    while (rights.size() < kRights) {
      const std::string number = std::to_string(rights.size() + 1);
      rights.push_back({.keyword = "AREA-" + number, .label = "Work in area " + number});
    }
    return rights;
  }
};

double RunBare(bench::Bare& engine, const std::vector<std::string>& statements) {
  return bench::Time([&] {
    engine.Step("BEGIN", kAllRows);
    for (const std::string& statement : statements) {
      engine.Step(statement, kAllRows);
    }
    engine.Step("COMMIT", kAllRows);
  });
}

std::int32_t EmployeeOf(bench::Subject& subject, const std::string& login) {
  return session::ToId(
      subject.Session().Connection().Execute("SELECT PWMPid FROM PWMTable WHERE PWMUseNam='" + login + "'")->Get(0));
}

forms::Grid& BringForward(forms::Form& form, const char* grid_name) {
  auto& grid = dynamic_cast<forms::Grid&>(*form.Find(grid_name));
  auto& tabs = dynamic_cast<forms::TabStrip&>(*form.Find("TabEBInfo"));
  for (int page = 0; !grid.Usable() && page < static_cast<int>(tabs.Tabs->size()); ++page) {
    tabs.DoTab(page);
  }
  return grid;
}

void RightsGrid(benchmark::State& state) {
  bench::Subject subject(2000);
  for (int i = 0; i < kMoreLocations; ++i) {
    subject.Run("INSERT INTO OffLocTable (OffLocNam, OfficeID) VALUES ('Location', 1)");
  }
  std::optional<bench::Bare> engine;
  host::Practice practice(subject.Url());
  ManyRights session(practice, practice.Office(), host::LoginRights("bench", true), host::ThisMachine({}, {}));
  bench::QuickUser user;
  const auto screens = entry::MakeScreens(session, user);
  const std::int32_t employee = EmployeeOf(subject, "front");
  double opening = 0;
  double editing = 0;
  double saving = 0;
  double opening_bare = 0;
  double saving_bare = 0;
  std::size_t open_statements = 0;
  std::size_t save_statements = 0;
  int round = 0;
  const auto open_and_save = [&] {
    session.prepared.clear();
    auto start = bench::Clock::now();
    user.acts = [&](forms::Form& form) {
      forms::Grid& grid = BringForward(form, "FGrd");
      for (int row = 0; row < grid.RowCount(); ++row) {
        benchmark::DoNotOptimize(grid.Rows.get()->Text(row, 0));
      }
      opening += std::chrono::duration<double>(bench::Clock::now() - start).count();
      const auto opened = std::exchange(session.prepared, {});
      dynamic_cast<forms::CheckBox&>(*form.Find("chkSameRights")).DoCheck(forms::CheckState::On);
      const int column = grid.ColumnIndex("Delete");
      editing += bench::Time([&] {
        // The first is the supervisor's, which includes the others.
        for (int row = 1; row < grid.RowCount(); ++row) {
          grid.DoRow(row);
          grid.DoCell(column, round % 2 == 0 ? "1" : "0");
        }
      });
      session.prepared.clear();
      saving += bench::Time([&] { dynamic_cast<forms::DialogButtons&>(*form.Find("DialogButtons1")).OK.DoClick(); });
      const auto saved = std::exchange(session.prepared, {});
      open_statements = opened.size();
      save_statements = saved.size();
      if (engine) {
        opening_bare += RunBare(*engine, opened);
        saving_bare += RunBare(*engine, saved);
      }
    };
    entry::EditRecord({session, user, *screens}, session::Opening::Existing(session::RecordKind::Employee, employee));
    ++round;
  };
  // The first time adds the rows; then there is a twin to compare with.
  open_and_save();
  const std::size_t first_save_statements = save_statements;
  const double first_saving = std::exchange(saving, 0);
  opening = editing = 0;
  round = 1;
  const auto given =
      subject.Session().Connection().Execute("SELECT COUNT(*) FROM PWATable WHERE PWAUseNam='front' AND PWAFla1<>0");
  if (session::ToId(given->Get(0)) != (kRights - 1) * 5) {
    throw std::logic_error(session::ToText(given->Get(0)) + " rights were given");
  }
  const bench::Subject twin(bench::Subject::CopyOf{subject});
  engine.emplace(twin.Url());
  for (auto _ : state) {
    open_and_save();
  }
  --round;
  const auto count = [&](const char* name, double value) { state.counters[name] = value; };
  count("open_statements", static_cast<double>(open_statements));
  count("first_save_statements", static_cast<double>(first_save_statements));
  count("first_save_ms", 1e3 * first_saving);
  count("save_statements", static_cast<double>(save_statements));
  count("open_ms", 1e3 * opening / round);
  count("edit_ms", 1e3 * editing / round);
  count("save_ms", 1e3 * saving / round);
  count("open_to_bare", opening / opening_bare);
  count("save_to_bare", saving / saving_bare);
}
BENCHMARK(RightsGrid)->Iterations(20);

}  // namespace
