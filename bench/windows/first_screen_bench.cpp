// What the component costs its host: the sizes of the libraries on disk, and the time from loading to the first screen,
// beside a library that shows an empty dialog of the same toolkit. Each time is taken in a fresh process; the two take
// turns, and the medians are compared.
//
//   first_screen_bench [ROUNDS]
#include <windows.h>

#include <oleauto.h>
#include <twSimpleEditScreens.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include "automation/com_ptr.h"
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
const wchar_t* const kComponent = L"TWSESC22.dll";
const wchar_t* const kEmpty = L"empty_dialog.dll";

std::int64_t Microseconds() {
  LARGE_INTEGER now;
  LARGE_INTEGER second;
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&second);
  return now.QuadPart * 1000000 / second.QuadPart;
}

std::filesystem::path Beside(const wchar_t* file) {
  std::wstring program(MAX_PATH, L'\0');
  program.resize(GetModuleFileNameW(nullptr, program.data(), MAX_PATH));
  return std::filesystem::path(program).replace_filename(file);
}

BOOL CALLBACK FindShown(HWND window, LPARAM found) {
  if (IsWindowVisible(window) == FALSE) {
    return TRUE;
  }
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

// Notes when this thread's first window is up, and closes it.
class FirstWindow {
 public:
  FirstWindow()
      : thread_([this, screens = GetCurrentThreadId()] {
          HWND window = nullptr;
          while (window == nullptr) {
            Sleep(0);
            EnumThreadWindows(screens, FindShown, reinterpret_cast<LPARAM>(&window));
          }
          // Answered once it has been shown whole.
          SendMessageW(window, WM_NULL, 0, 0);
          seen_ = Microseconds();
          PostMessageW(window, WM_CLOSE, 0, 0);
        }) {}
  FirstWindow(const FirstWindow&) = delete;
  FirstWindow& operator=(const FirstWindow&) = delete;
  ~FirstWindow() { thread_.join(); }

  std::int64_t Seen() {
    thread_.join();
    thread_ = std::thread([] {});
    return seen_;
  }

 private:
  std::int64_t seen_ = 0;
  std::thread thread_;
};

HMODULE Load(const wchar_t* file) {
  HMODULE library = LoadLibraryW(Beside(file).c_str());
  Check(library == nullptr ? HRESULT_FROM_WIN32(GetLastError()) : S_OK);
  return library;
}

std::int64_t TimeEmpty() {
  FirstWindow window;
  const std::int64_t start = Microseconds();
  HMODULE library = Load(kEmpty);
  reinterpret_cast<void (*)(HINSTANCE)>(reinterpret_cast<void*>(GetProcAddress(library, "ShowEmptyDialog")))(library);
  return window.Seen() - start;
}

// The patient screen over a demo practice.
std::int64_t TimeComponent() {
  host::DemoOptions options;
  options.patients = 100;
  host::Practice practice = host::MakeDemo("sqlite::memory:", options);
  host::HostSession session(practice, 1, host::LoginRights("ANN", true), host::ThisMachine(".", "."));
  CoInitialize(nullptr);
  const ComPtr<IDispatch> pv = host::MakeSessionObject(session);

  FirstWindow window;
  const std::int64_t start = Microseconds();
  using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFIID, REFIID, void**);
  ComPtr<IClassFactory> factory;
  Check(reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(GetProcAddress(
      Load(kComponent), "DllGetClassObject")))(__uuidof(EditingScreen), IID_IClassFactory, factory.OutVoid()));
  ComPtr<IEditingScreen> screens;
  Check(factory->CreateInstance(nullptr, __uuidof(IEditingScreen), screens.OutVoid()));
  screens->putref_PV(pv.Get());
  Variant id = Variant::Of("NEW");
  Check(screens->Load_PatInfo_Small(&id, nullptr, nullptr));
  const std::int64_t took = window.Seen() - start;
  screens->putref_PV(nullptr);
  return took;
}

// In a process of its own; its exit code is the time.
std::int64_t InFreshProcess(const std::string& what) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  std::wstring line = L"\"" + Beside(L"first_screen_bench.exe").wstring() + L"\" " + automation::ToWide(what);
  Check(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process) == FALSE
            ? HRESULT_FROM_WIN32(GetLastError())
            : S_OK);
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD took = 0;
  GetExitCodeProcess(process.hProcess, &took);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return took;
}

double Median(std::vector<std::int64_t> times) {
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::ranges::nth_element(times, middle);
  return static_cast<double>(*middle) / 1e6;
}

int Compare(int rounds) {
  const auto bytes = [](const wchar_t* file) { return static_cast<double>(std::filesystem::file_size(Beside(file))); };
  std::cout << "size: " << bytes(kComponent) / 1e6 << " MB, " << bytes(kComponent) / bytes(kEmpty)
            << " of the empty dialog's\n";
  std::vector<std::int64_t> component;
  std::vector<std::int64_t> empty;
  for (int round = 0; round < rounds; ++round) {
    component.push_back(InFreshProcess("--component"));
    empty.push_back(InFreshProcess("--empty"));
  }
  std::cout << "first screen: " << Median(component) << " s, " << Median(component) / Median(empty)
            << " of the empty dialog's " << Median(empty) << " s\n";
  return 0;
}

}  // namespace

int main(int count, char** words) {
  const std::string what = count > 1 ? words[1] : "";
  try {
    if (what == "--component") {
      return static_cast<int>(TimeComponent());
    }
    if (what == "--empty") {
      return static_cast<int>(TimeEmpty());
    }
    return Compare(what.empty() ? kRounds : std::stoi(what));
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
