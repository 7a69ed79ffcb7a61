// How long a program takes from its start until the desk's home is painted, beside one that shows an empty window of
// the toolkit; and the same of the windows alone, in a program that runs. On a display that nobody sees.
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <unistd.h>
#include <wx/frame.h>

#include <filesystem>

#include "bare.h"
#include "desk/main_frame.h"
#include "practice/demo.h"
#include "toolkit.h"
#include "unix/child_process.h"
#include "unix/displays.h"

namespace {

std::string this_program;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): of this process
const std::string kFolder = (std::filesystem::temp_directory_path() / "home_window_bench").string();
const std::string kPractice = "sqlite:" + kFolder + "/demo.sqlite";

wxFrame* MakeEmpty() {
  return new wxFrame(nullptr, wxID_ANY, "Empty", wxDefaultPosition, wxSize(1250, 650));
}

// The desk of somebody who has logged in.
std::unique_ptr<host::Desk> OpenDesk() {
  auto desk = std::make_unique<host::Desk>(host::Practice(kPractice), host::Desk::Folders{kFolder, kFolder, kFolder},
                                           host::ClassesOfThisProgram);
  host::LoginResult login;
  login.rights = host::LoginRights("bench", true);
  desk->Open(login, desk->OfPractice().Office());
  return desk;
}

void ShowUntilPainted(wxFrame& frame) {
  bool painted = false;
  frame.Bind(wxEVT_PAINT, [&painted](wxPaintEvent& event) {
    painted = true;
    event.Skip();
  });
  frame.Show();
  while (!painted) {
    wxEventLoopBase::GetActive()->YieldFor(wxEVT_CATEGORY_ALL);
  }
}

// Of the processor, which other work does not slow: the programs that have ended.
double SecondsOfChildren() {
  rusage used{};
  getrusage(RUSAGE_CHILDREN, &used);
  constexpr double kMicro = 1e-6;
  return static_cast<double>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) +
         kMicro * static_cast<double>(used.ru_utime.tv_usec + used.ru_stime.tv_usec);
}

void StartProgram(benchmark::State& state) {
  const auto run = [](const char* what) {
    const double before = SecondsOfChildren();
    host::ChildProcess({this_program, "--show", what}).WaitForEnd();
    return SecondsOfChildren() - before;
  };
  run("home");
  double home = 0;
  double empty = 0;
  for (auto _ : state) {
    empty += run("empty");
    home += run("home");
  }
  state.counters["milliseconds"] = 1000 * home / static_cast<double>(state.iterations());
  state.counters["to_empty"] = home / empty;
}
BENCHMARK(StartProgram)->Iterations(20)->Unit(benchmark::kMillisecond);

void ShowWindow(benchmark::State& state) {
  const auto desk = OpenDesk();
  const auto show = [](const std::function<wxFrame*()>& make) {
    wxFrame* frame = nullptr;
    const double seconds = bench::Time([&] {
      frame = make();
      ShowUntilPainted(*frame);
    });
    delete frame;
    return seconds;
  };
  double home = 0;
  double empty = 0;
  for (auto _ : state) {
    empty += show(MakeEmpty);
    home += show([&desk] { return new host::MainFrame(*desk, [] {}); });
  }
  state.counters["milliseconds"] = 1000 * home / static_cast<double>(state.iterations());
  state.counters["to_empty"] = home / empty;
}
BENCHMARK(ShowWindow)->Iterations(20)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int count, char** words) {
  this_program = words[0];
  if (count == 3 && std::string(words[1]) == "--show") {
    int none = 1;
    const bench::Toolkit toolkit(none, words);
    const bool home = std::string(words[2]) == "home";
    const auto desk = home ? OpenDesk() : nullptr;
    ShowUntilPainted(home ? *new host::MainFrame(*desk, [] {}) : *MakeEmpty());
    _exit(0);
  }
  const host::OwnDisplay display = host::HideFromEverybody();
  std::filesystem::remove_all(kFolder);
  std::filesystem::create_directories(kFolder);
  host::MakeDemo(kPractice, {.patients = 2000, .seed = 1, .practice = {}});
  const bench::Toolkit toolkit(count, words);
  benchmark::Initialize(&count, words);
  benchmark::RunSpecifiedBenchmarks();
  std::filesystem::remove_all(kFolder);
  return 0;
}
