#include "console/cluster_command.h"

#include <unistd.h>

#include <csignal>
#include <string>

#include "database/unix/throwaway_cluster.h"

namespace host {
namespace {

// Ends the input, and so the server.
void EndInput(int /*signal*/) {
  close(STDIN_FILENO);
}

}  // namespace

void RunCluster(std::istream& input, std::ostream& output) {
  ThrowawayCluster cluster(ThrowawayCluster::Own{});
  struct sigaction end {};
  end.sa_handler = EndInput;
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    sigaction(signal, &end, nullptr);
  }
  output << cluster.Url("postgres") << std::endl;
  bool runs = true;
  for (std::string line; std::getline(input, line);) {
    if (line == "stop" && runs) {
      cluster.Halt();
      runs = false;
    } else if (line == "start" && !runs) {
      cluster.Start();
      runs = true;
    } else {
      output << "There is only \"stop\" and \"start\", in turns." << std::endl;
      continue;
    }
    output << (runs ? "started" : "stopped") << std::endl;
  }
}

}  // namespace host
