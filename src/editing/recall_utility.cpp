#include "editing/recall_utility.h"

#include <filesystem>
#include <string>

namespace editing {

bool StartRecallUtility(session::Machine& machine, std::int32_t recall) {
  const std::string folder = machine.ProgramFolder();
  const std::filesystem::path program =
      std::filesystem::path(std::u8string(folder.begin(), folder.end())) / "FXRECALL.EXE";
  const std::u8string path = program.u8string();
  return machine.StartProgram("\"" + std::string(path.begin(), path.end()) + "\" /S /ID=" + std::to_string(recall));
}

}  // namespace editing
