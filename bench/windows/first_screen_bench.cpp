// What the component costs its host: the size of the library on disk, and the time from loading it to the first screen,
// the patient's; beside a library that shows a bare dialog of the same toolkit, empty or with about as many fields.
// Each time is taken in a fresh process; they take turns, and the medians are compared.
//
//   first_screen_bench [ROUNDS]
#include <windows.h>

#include <oleauto.h>
#include <twSimpleEditScreens.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "automation/com_ptr.h"
#include "automation/module.h"
#include "automation/server_library.h"
#include "automation/session_object.h"
#include "automation/variant.h"
#include "automation/wide_text.h"
#include "practice/demo.h"
#include "practice/host_session.h"

namespace {

using automation::Check;
using automation::ComPtr;
using automation::Variant;

constexpr int kRounds = 15;
const char* const kPatient = "patient-screen";
const char* const kEmpty = "empty-dialog";
const char* const kFields = "dialog-with-fields";
const wchar_t* const kComponent = L"TWSESC22.dll";
const wchar_t* const kBare = L"bare_dialog.dll";
// Of a caption, a field and a button: some windows less than the patient screen's 67.
constexpr int kRows = 20;

std::int64_t Microseconds() {
  LARGE_INTEGER now;
  LARGE_INTEGER second;
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&second);
  return now.QuadPart * 1000000 / second.QuadPart;
}

std::wstring Beside(const wchar_t* file) {
  return automation::ModuleFolder() + L'\\' + file;
}

BOOL CALLBACK FindShown(HWND window, LPARAM found) {
  if (IsWindowVisible(window) == FALSE) {
    return TRUE;
  }
  *reinterpret_cast<HWND*>(found) = window;  // NOLINT(performance-no-int-to-ptr): Windows hands pointers on as numbers
  return FALSE;
}

// Notes when this thread's first window is up, and closes it.
class FirstWindow {
 public:
  std::int64_t Seen() {
    thread_.join();
    return seen_;
  }

 private:
  void Watch(const std::stop_token& stop, DWORD screens) {
    HWND window = nullptr;
    while (window == nullptr) {
      if (stop.stop_requested()) {
        return;
      }
      Sleep(1);
      EnumThreadWindows(screens, FindShown, reinterpret_cast<LPARAM>(&window));
    }
    // Returns once the window and all in it are painted.
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    seen_ = Microseconds();
    PostMessageW(window, WM_CLOSE, 0, 0);
  }

  std::int64_t seen_ = 0;
  std::jthread thread_{[this, screens = GetCurrentThreadId()](const std::stop_token& stop) { Watch(stop, screens); }};
};

void ShowBare(int rows) {
  HMODULE library = LoadLibraryW(Beside(kBare).c_str());
  Check(library == nullptr ? HRESULT_FROM_WIN32(GetLastError()) : S_OK);
  using Show = void (*)(HINSTANCE, int);
  reinterpret_cast<Show>(reinterpret_cast<void*>(GetProcAddress(library, "ShowBareDialog")))(library, rows);
}

void ShowPatient(IDispatch* pv) {
  const automation::ServerLibrary component(Beside(kComponent));
  const auto screens = component.Make<IEditingScreen, EditingScreen>();
  Check(screens->putref_PV(pv));
  Variant id = Variant::Of("NEW");
  Check(screens->Load_PatInfo_Small(&id, nullptr, nullptr));
  Check(screens->putref_PV(nullptr));
}

// The host's own work comes before, for the bare dialogs too: it loads libraries that all need.
std::int64_t TimeToFirstScreen(const std::string& what) {
  host::DemoOptions options;
  options.patients = 100;
  host::Practice practice = host::MakeDemo("sqlite::memory:", options);
  host::HostSession session(practice, 1, host::LoginRights("ANN", true), host::ThisMachine(".", "."));
  Check(CoInitialize(nullptr));
  const ComPtr<IDispatch> pv = host::MakeSessionObject(session);

  FirstWindow window;
  const std::int64_t start = Microseconds();
  if (what == kPatient) {
    ShowPatient(pv.Get());
  } else {
    ShowBare(what == kFields ? kRows : 0);
  }
  return window.Seen() - start;
}

// In a process of its own; its exit code is the time.
std::int64_t InFreshProcess(const std::string& what) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  std::wstring line = L"\"" + automation::ModulePath() + L"\" " + automation::ToWide(what);
  Check(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process) == FALSE
            ? HRESULT_FROM_WIN32(GetLastError())
            : S_OK);
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD took = 0;
  GetExitCodeProcess(process.hProcess, &took);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  if (took <= 1) {
    throw std::runtime_error(what + " could not be timed");
  }
  return took;
}

double Median(std::vector<std::int64_t> times) {
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::ranges::nth_element(times, middle);
  return static_cast<double>(*middle) / 1e6;
}

int Compare(int rounds) {
  const auto bytes = [](const wchar_t* file) { return static_cast<double>(std::filesystem::file_size(Beside(file))); };
  std::cout << "size: " << bytes(kComponent) / 1e6 << " MB, " << bytes(kComponent) / bytes(kBare)
            << " of the bare dialog's " << bytes(kBare) / 1e6 << " MB\n";
  std::map<std::string, std::vector<std::int64_t>> times;
  for (int round = 0; round < rounds; ++round) {
    for (const char* what : {kPatient, kEmpty, kFields}) {
      times[what].push_back(InFreshProcess(what));
    }
  }
  const double patient = Median(times[kPatient]);
  std::cout << "first screen: " << patient << " s\n";
  for (const char* what : {kEmpty, kFields}) {
    std::cout << "relative to " << what << ": " << patient / Median(times[what]) << '\n';
  }
  return 0;
}

}  // namespace

int main(int count, char** words) {
  const std::string what = count > 1 ? words[1] : "";
  try {
    if (what == kPatient || what == kEmpty || what == kFields) {
      return static_cast<int>(TimeToFirstScreen(what));
    }
    return Compare(what.empty() ? kRounds : std::stoi(what));
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
