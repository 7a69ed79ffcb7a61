#include "unix/child_process.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>

namespace host {

// A pipe that closes when the program starts tells a failed start.
ChildProcess::ChildProcess(const std::vector<std::string>& command, Talk talk) {
  std::vector<char*> arguments;
  for (const std::string& word : command) {
    arguments.push_back(const_cast<char*>(word.c_str()));  // NOLINT: the C interface takes them so
  }
  arguments.push_back(nullptr);
  std::array<int, 2> failure{};
  if (pipe2(failure.data(), O_CLOEXEC) != 0) {
    throw std::system_error(errno, std::generic_category(), command.front());
  }
  id_ = fork();
  if (id_ == 0) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (const int nowhere = talk == Talk::Silent ? open("/dev/null", O_WRONLY) : -1; nowhere >= 0) {
      dup2(nowhere, STDOUT_FILENO);
      dup2(nowhere, STDERR_FILENO);
    }
    execvp(arguments.front(), arguments.data());
    const int error = errno;
    (void)!write(failure[1], &error, sizeof error);
    _exit(127);
  }
  close(failure[1]);
  int error = id_ < 0 ? errno : 0;
  if (id_ > 0 && read(failure[0], &error, sizeof error) == sizeof error) {
    WaitForEnd();
  }
  close(failure[0]);
  if (error != 0) {
    throw std::system_error(error, std::generic_category(), command.front());
  }
}

ChildProcess::~ChildProcess() {
  if (Running()) {
    kill(id_, SIGTERM);
    WaitForEnd();
  }
}

bool ChildProcess::Running() {
  if (id_ > 0 && waitpid(id_, &status_, WNOHANG) == id_) {
    id_ = -1;
  }
  return id_ > 0;
}

int ChildProcess::WaitForEnd() {
  if (id_ > 0) {
    while (waitpid(id_, &status_, 0) < 0 && errno == EINTR) {
    }
    id_ = -1;
  }
  return WIFEXITED(status_) ? WEXITSTATUS(status_) : 1;
}

}  // namespace host
