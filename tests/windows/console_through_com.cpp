// Plays scenario files as practice_console does, on screens that reach the practice as the component's do: every call
// of the session, and every statement, passes the objects of a host and the component's adapters of them.
#include <iostream>

#include "automation/module.h"
#include "automation/session_object.h"
#include "com/pv_session.h"
#include "console/scenario_runner.h"
#include "practice/machine.h"

int main(int argc, char** argv) {
  host::SpeakUtf8AtConsole();
  const auto tally = host::RunScenarioFiles(
      host::ProgramArguments(argc, argv), std::cout, {.to_screens = [](std::shared_ptr<session::Session> session) {
        return std::make_shared<com::PvSession>(host::MakeSessionObject(std::move(session)));
      }});
  const bool kept = automation::ModuleInUse();
  if (kept) {
    std::cout << "an object is still alive\n";
  }
  return tally.failed == 0 && !kept ? 0 : 1;
}
