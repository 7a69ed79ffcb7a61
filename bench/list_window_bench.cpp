// How long a list of 400,000 rows takes from the order to open it until its first rows are painted, beside an empty
// dialog of the toolkit. On a display that nobody sees. A word on the command line names the file of the practice,
// which is kept for the next time.
#include <benchmark/benchmark.h>
#include <wx/dialog.h>
#include <wx/eventfilter.h>
#include <wx/grid.h>

#include <algorithm>
#include <filesystem>
#include <vector>

#include "bare.h"
#include "desk/desk.h"
#include "recording.h"
#include "toolkit.h"
#include "unix/displays.h"

namespace {

std::unique_ptr<bench::Subject> subject;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): made once

// Calls back behind the first painting of a window of some kind.
class Painted : public wxEventFilter {
 public:
  Painted(std::function<bool(wxObject&)> watched, std::function<void()> painted)
      : watched_(std::move(watched)), painted_(std::move(painted)) {
    wxEvtHandler::AddFilter(this);
  }
  Painted(const Painted&) = delete;
  Painted& operator=(const Painted&) = delete;
  ~Painted() override { wxEvtHandler::RemoveFilter(this); }

  int FilterEvent(wxEvent& event) override {
    if (!seen_ && event.GetEventType() == wxEVT_PAINT && event.GetEventObject() != nullptr &&
        watched_(*event.GetEventObject())) {
      seen_ = true;
      wxTheApp->CallAfter(painted_);
    }
    return Event_Skip;
  }

 private:
  std::function<bool(wxObject&)> watched_;
  std::function<void()> painted_;
  bool seen_ = false;
};

wxGrid* GridOf(wxObject& painted) {
  auto* window = dynamic_cast<wxWindow*>(&painted);
  auto* grid = window == nullptr ? nullptr : dynamic_cast<wxGrid*>(window->GetParent());
  return grid != nullptr && grid->GetGridWindow() == window && grid->GetNumberRows() > 0 ? grid : nullptr;
}

double SecondsSince(bench::Clock::time_point start) {
  return std::chrono::duration<double>(bench::Clock::now() - start).count();
}

double OpenEmpty() {
  const auto start = bench::Clock::now();
  double seconds = 0;
  wxDialog dialog(nullptr, wxID_ANY, "Empty", wxDefaultPosition, wxSize(1000, 640));
  const Painted painted([&](wxObject& window) { return &window == &dialog; },
                        [&] {
                          seconds = SecondsSince(start);
                          dialog.EndModal(wxID_CANCEL);
                        });
  dialog.ShowModal();
  return seconds;
}

double OpenList(host::Desk& desk) {
  const auto start = bench::Clock::now();
  double seconds = 0;
  wxGrid* grid = nullptr;
  const Painted painted([&](wxObject& window) { return (grid = GridOf(window)) != nullptr; },
                        [&] {
                          seconds = SecondsSince(start);
                          wxGetTopLevelParent(grid)->Close();
                        });
  desk.Context().screens.ShowList(session::lulFamilyHead, {});
  return seconds;
}

void ShowList(benchmark::State& state) {
  const std::string folder = std::filesystem::temp_directory_path().string();
  host::Desk desk(host::Practice(subject->Url()), {folder, folder, folder}, host::ClassesOfThisProgram);
  host::LoginResult login;
  login.rights = host::LoginRights("bench", true);
  desk.Open(login, desk.OfPractice().Office());
  std::vector<double> list;
  std::vector<double> empty;
  for (auto _ : state) {
    empty.push_back(OpenEmpty());
    list.push_back(OpenList(desk));
  }
  state.counters["milliseconds"] = 1000 * bench::Median(list);
  state.counters["to_empty"] = bench::Median(list) / bench::Median(empty);
}
BENCHMARK(ShowList)->Iterations(20)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int count, char** words) {
  const host::OwnDisplay display = host::HideFromEverybody();
  benchmark::Initialize(&count, words);
  subject = std::make_unique<bench::Subject>(1000000, count > 1 ? words[1] : "");
  int none = 1;
  const bench::Toolkit toolkit(none, words);
  benchmark::RunSpecifiedBenchmarks();
  subject.reset();
  return 0;
}
