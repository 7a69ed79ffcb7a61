#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <vector>

#include "forms/dates.h"

// What the host asks of the machine it runs on.
namespace host {

// A process of any time: its number is used again, its start is not.
struct ProcessIdentity {
  std::string machine;
  std::int64_t number = 0;
  std::int64_t started = 0;  // in the system's own ticks

  friend bool operator==(const ProcessIdentity&, const ProcessIdentity&) = default;
};
ProcessIdentity ThisProcess();
// True as well for a process of another machine, which cannot be looked up from here.
bool MayBeAlive(const ProcessIdentity& process);

// The wall clock.
forms::DateTime LocalNow();

// Starts a program and does not wait for it; words of the command line in double quotes keep their blanks. False when
// it could not be started.
bool StartProcess(const std::string& command_line);

// What main was given, without the program's own name, as UTF-8.
std::vector<std::string> ProgramArguments(int count, char** words);
// What goes through the standard streams is UTF-8, at a console too.
void SpeakUtf8AtConsole();

}  // namespace host
