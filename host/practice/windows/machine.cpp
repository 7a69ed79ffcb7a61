#include "practice/machine.h"

#include <windows.h>

#include <shellapi.h>

#include <array>
#include <memory>

#include "automation/wide_text.h"

namespace host {
namespace {

using automation::ToUtf8;
using automation::ToWide;

// 0 when the process is not running.
std::int64_t StartOf(HANDLE process) {
  FILETIME created{}, exited{}, kernel{}, user{};
  DWORD exit_code = 0;
  if (!GetExitCodeProcess(process, &exit_code) || exit_code != STILL_ACTIVE ||
      !GetProcessTimes(process, &created, &exited, &kernel, &user)) {
    return 0;
  }
  return (static_cast<std::int64_t>(created.dwHighDateTime) << 32) | created.dwLowDateTime;
}

struct LocallyFreed {
  void operator()(void* memory) const { LocalFree(memory); }
};

// The installation's own number; a process that started before the machine did is not found by its start.
std::string SystemName() {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft\\Cryptography", 0, KEY_QUERY_VALUE | KEY_WOW64_64KEY,
                    &key) != ERROR_SUCCESS) {
    return {};
  }
  std::array<wchar_t, 64> number{};
  DWORD size = sizeof number;
  const bool read =
      RegGetValueW(key, nullptr, L"MachineGuid", RRF_RT_REG_SZ, nullptr, number.data(), &size) == ERROR_SUCCESS;
  RegCloseKey(key);
  return read ? ToUtf8(number.data()) : std::string();
}

std::string MachineName() {
  std::array<wchar_t, MAX_COMPUTERNAME_LENGTH + 1> name{};
  DWORD size = name.size();
  return GetComputerNameW(name.data(), &size) ? ToUtf8({name.data(), size}) : std::string();
}

// As programs read it back: a quote, and backslashes before one or at the end, have a backslash before them.
std::wstring Quoted(const std::wstring& word) {
  if (!word.empty() && word.find_first_of(L" \t\n\v\"") == std::wstring::npos) {
    return word;
  }
  std::wstring quoted = L"\"";
  std::size_t slashes = 0;
  for (const wchar_t c : word) {
    if (c == L'"') {
      quoted.append(slashes + 1, L'\\');
    }
    slashes = c == L'\\' ? slashes + 1 : 0;
    quoted += c;
  }
  return quoted.append(slashes, L'\\') + L"\"";
}

}  // namespace

ProcessIdentity ThisProcess() {
  return {MachineName(), SystemName(), static_cast<std::int64_t>(GetCurrentProcessId()), StartOf(GetCurrentProcess())};
}

ProcessState StateOf(const ProcessIdentity& process) {
  if (process.system.empty() || process.system != SystemName() || process.machine != MachineName()) {
    return ProcessState::Elsewhere;
  }
  HANDLE handle = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(process.number));
  if (handle == nullptr) {
    // Another person's process is there, though closed to us.
    return GetLastError() == ERROR_ACCESS_DENIED ? ProcessState::Runs : ProcessState::Ended;
  }
  const bool runs = StartOf(handle) == process.started;
  CloseHandle(handle);
  return runs ? ProcessState::Runs : ProcessState::Ended;
}

bool StartProcess(const std::vector<std::string>& words) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  std::wstring line;
  for (const std::string& word : words) {
    line += (line.empty() ? L"" : L" ") + Quoted(ToWide(word));
  }
  if (words.empty() ||
      !CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process)) {
    return false;
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return true;
}

bool OpenLetter(const std::string& file) {
  constexpr std::intptr_t kMostErrors = 32;
  return reinterpret_cast<std::intptr_t>(
             ShellExecuteW(nullptr, L"open", ToWide(file).c_str(), nullptr, nullptr, SW_SHOWNORMAL)) > kMostErrors;
}

std::string_view FileManager() {
  return "explorer";
}

bool SyncFile(const std::string& file) {
  HANDLE opened = CreateFileW(ToWide(file).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (opened == INVALID_HANDLE_VALUE) {
    return false;
  }
  const bool synced = FlushFileBuffers(opened) != 0;
  CloseHandle(opened);
  return synced;
}

forms::DateTime LocalNow() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  namespace chrono = std::chrono;
  const forms::Date day{chrono::year(now.wYear), chrono::month(now.wMonth), chrono::day(now.wDay)};
  return forms::AtMidnight(day) + chrono::hours(now.wHour) + chrono::minutes(now.wMinute) +
         chrono::seconds(now.wSecond);
}

std::vector<std::string> ProgramArguments(int /*count*/, char** /*words*/) {
  // Those that main is given have lost what the system's code page lacks.
  int count = 0;
  const std::unique_ptr<wchar_t*, LocallyFreed> wide(CommandLineToArgvW(GetCommandLineW(), &count));
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) {
    arguments.push_back(ToUtf8(wide.get()[i]));
  }
  return arguments;
}

void SpeakUtf8AtConsole() {
  SetConsoleCP(CP_UTF8);
  SetConsoleOutputCP(CP_UTF8);
}

}  // namespace host
