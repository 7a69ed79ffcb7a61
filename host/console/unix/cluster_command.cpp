#include "console/cluster_command.h"

#include <string>

#include "database/unix/throwaway_cluster.h"

namespace host {

void RunCluster(std::istream& input, std::ostream& output) {
  ThrowawayCluster cluster(ThrowawayCluster::Own{});
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
