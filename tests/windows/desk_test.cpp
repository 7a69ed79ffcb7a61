// The reference host as a person uses it: the real program, with real keys.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "automation/module.h"
#include "automation/wide_text.h"
#include "practice/demo.h"

namespace {

// The program, with somebody at its windows. What does not happen within half a minute is an error.
class DeskAndPerson {
 public:
  explicit DeskAndPerson(const std::string& arguments) {
    std::wstring line = L"\"" + automation::ModuleFolder() + L"\\practice_desk.exe\" " + automation::ToWide(arguments);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process_) ==
        FALSE) {
      throw std::runtime_error("the desk cannot be started");
    }
  }
  DeskAndPerson(const DeskAndPerson&) = delete;
  DeskAndPerson& operator=(const DeskAndPerson&) = delete;
  ~DeskAndPerson() {
    TerminateProcess(process_.hProcess, 1);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }

  // The window whose title ends so, once it has the keyboard.
  HWND Await(std::wstring_view title) {
    HWND window = nullptr;
    AwaitThat("the window " + automation::ToUtf8(title), [&] {
      window = GetForegroundWindow();
      return IsOurs(window) && IsWindowEnabled(window) != FALSE && TextOf(window).ends_with(title) &&
             Focus() != nullptr;
    });
    return window;
  }
  void Type(std::wstring_view text) const {
    for (const wchar_t c : text) {
      const auto key = static_cast<WORD>(VkKeyScanW(c));
      const bool shift = (key & 0x100) != 0;
      Press(static_cast<WORD>(key & 0xFF), shift ? VK_SHIFT : WORD{0});
    }
  }
  void Press(WORD key, WORD held = 0) const {
    std::vector<INPUT> strokes;
    const auto stroke = [&](WORD code, DWORD flags) {
      INPUT input{};
      input.type = INPUT_KEYBOARD;
      input.ki.wVk = code;
      input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
      input.ki.dwFlags = flags;
      strokes.push_back(input);
    };
    if (held != 0) {
      stroke(held, 0);
    }
    stroke(key, 0);
    stroke(key, KEYEVENTF_KEYUP);
    if (held != 0) {
      stroke(held, KEYEVENTF_KEYUP);
    }
    SendInput(static_cast<UINT>(strokes.size()), strokes.data(), sizeof(INPUT));
  }
  DWORD AwaitExit() {
    DWORD status = STILL_ACTIVE;
    AwaitThat("the end of the desk", [&] {
      GetExitCodeProcess(process_.hProcess, &status);
      return status != STILL_ACTIVE;
    });
    return status;
  }

  static std::wstring TextOf(HWND window) {
    std::array<wchar_t, 300> text{};
    const LRESULT size = SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return {text.data(), static_cast<std::size_t>(size)};
  }

 private:
  bool IsOurs(HWND window) const {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process == process_.dwProcessId;
  }
  HWND Focus() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(process_.dwThreadId, &info);
    return info.hwndFocus;
  }
  void AwaitThat(const std::string& what, const std::function<bool()>& holds) const {
    constexpr int kTries = 3000;
    for (int tries = 0; tries < kTries; ++tries) {
      if (holds()) {
        return;
      }
      Sleep(10);
    }
    throw std::runtime_error("did not see " + what + ", but \"" + automation::ToUtf8(TextOf(GetForegroundWindow())) +
                             "\" with \"" + automation::ToUtf8(TextOf(Focus())) + "\"");
  }

  PROCESS_INFORMATION process_{};
};

std::string Rows(host::Practice& practice, const std::string& sql) {
  std::string text;
  for (const auto rows = practice.Database().connection->Execute(sql); !rows->Eof(); rows->MoveNext()) {
    for (std::size_t i = 0; i < rows->Fields().size(); ++i) {
      text += session::ToText(rows->Get(i)) + "|";
    }
  }
  return text;
}

TEST(Desk, AddsAPatientInTheComponent) {
  const auto folder = std::filesystem::temp_directory_path() / ("desk_test_" + std::to_string(GetCurrentProcessId()));
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  host::DemoOptions demo;
  demo.patients = 20;
  host::Practice practice = host::MakeDemo("sqlite:" + folder.string() + "/practice.sqlite", demo);

  DeskAndPerson person("--database \"sqlite:" + folder.string() + "/practice.sqlite\"");
  person.Await(L"Log In");
  person.Type(L"front\twrong\r");
  person.Press('A', VK_CONTROL);
  person.Type(L"front\r");
  HWND desk = person.Await(L"Practice Desk");
  person.Press('N', VK_CONTROL);
  HWND screen = person.Await(L"New Patient Information");
  EXPECT_EQ(GetWindow(screen, GW_OWNER), desk);
  EXPECT_FALSE(IsWindowEnabled(desk));
  person.Type(L"Smith\rJohn\rm\r\r010280\t\t2125550100\r");
  person.Press('O', VK_MENU);
  person.Await(L"Save Changes");
  person.Press('Y', VK_MENU);
  EXPECT_EQ(person.Await(L"Practice Desk"), desk);
  person.Press(VK_F4, VK_MENU);
  EXPECT_EQ(person.AwaitExit(), 0U);

  EXPECT_EQ(Rows(practice,
                 "SELECT pSEX, pBIRDAT, pHOMPHO, pTypPat FROM PATable "
                 "WHERE pLASNAM = 'Smith' AND pFIRNAM = 'John'"),
            "M|1980-01-02|(212) 555-0100|1|");
}

}  // namespace
