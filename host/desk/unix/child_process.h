#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace host {

// A program that runs beside us and ends with us, however we end.
class ChildProcess {
 public:
  enum class Talk { Heard, Silent };

  // `command` is the program and its arguments; a silent one's output goes nowhere. Throws std::system_error when it
  // cannot be started.
  explicit ChildProcess(const std::vector<std::string>& command, Talk talk = Talk::Heard);
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess();

  // While it runs.
  pid_t Id() const { return id_; }
  bool Running();
  // Its exit status.
  int WaitForEnd();

 private:
  pid_t id_ = -1;
  int status_ = 0;
};

}  // namespace host
