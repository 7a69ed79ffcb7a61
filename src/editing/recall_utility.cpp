#include "editing/recall_utility.h"

#include <string>

#include "editing/data_files.h"

namespace editing {

bool StartRecallUtility(session::Machine& machine, std::int32_t recall) {
  const std::string program = TextOf(PathOf(machine.ProgramFolder()) / "FXRECALL.EXE");
  return machine.StartProgram("\"" + program + "\" /S /ID=" + std::to_string(recall));
}

}  // namespace editing
