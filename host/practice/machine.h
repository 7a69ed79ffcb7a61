#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "forms/dates.h"

// What the host asks of the machine it runs on.
namespace host {

// A process of any time: its number is used again, its start is not.
struct ProcessIdentity {
  std::string machine;  // as people know it
  // Those that see each other's processes have it in common: on Linux one start of the machine, a container apart from
  // its host; on Windows the installation. Empty when it is unknown.
  std::string system;
  std::int64_t number = 0;
  std::int64_t started = 0;  // in the system's own ticks
};
ProcessIdentity ThisProcess();

enum class ProcessState { Runs, Ended, Elsewhere };
// `Elsewhere` is what cannot be looked up from here.
ProcessState StateOf(const ProcessIdentity& process);

// The wall clock.
forms::DateTime LocalNow();
// What the clocks of several machines have in common.
inline std::chrono::sys_seconds UtcNow() {
  return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

// Starts a program with its arguments, past any shell, and does not wait for it. False when it could not be started.
bool StartProcess(const std::vector<std::string>& words);
// Opens an RTF file in what this machine opens such files with. False when there is nothing.
bool OpenLetter(const std::string& file);

// What shows a folder on this machine.
std::string_view FileManager();
// Waits until the disk has the file. False when it has not.
bool SyncFile(const std::string& file);

// What main was given, without the program's own name, as UTF-8.
std::vector<std::string> ProgramArguments(int count, char** words);
// What goes through the standard streams is UTF-8, at a console too.
void SpeakUtf8AtConsole();

}  // namespace host
