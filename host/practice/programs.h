#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "practice/machine.h"
#include "practice/practice.h"

namespace host {

// How programs of the machine are started.
struct ProgramStarter {
  std::function<bool(const std::vector<std::string>& words)> run = StartProcess;
  std::function<bool(const std::string& file)> open = OpenLetter;
};

// The suite's programs as this host has them, by the first word of a command line, without its folder and in any case:
// "FXRECALL.EXE" refreshes a recall here and now, "TAVOWP.EXE" opens a letter of the data folder. Others are started
// as they are named, from the program folder where they lie there.
class Programs {
 public:
  Programs(std::string data_folder, std::string program_folder, ProgramStarter starter = {})
      : data_folder_(std::move(data_folder)),
        program_folder_(std::move(program_folder)),
        starter_(std::move(starter)) {}

  // On the office's records. False when the program could not be started, or could not do its work.
  bool Start(OfficeDatabase& office, const std::string& command_line) const;

 private:
  static bool Refresh(OfficeDatabase& office, std::string_view arguments);
  bool EditLetter(OfficeDatabase& office, std::string_view arguments) const;
  bool StartAnother(std::vector<std::string> words) const;

  std::string data_folder_;
  std::string program_folder_;
  ProgramStarter starter_;
};

// The words of a command line; blanks stay in a word where double quotes stand around them.
std::vector<std::string> SplitCommandLine(std::string_view line);

}  // namespace host
