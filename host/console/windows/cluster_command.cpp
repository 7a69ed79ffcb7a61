#include "console/cluster_command.h"

#include <stdexcept>

namespace host {

void RunCluster(std::istream& /*input*/, std::ostream& /*output*/) {
  throw std::runtime_error("PostgreSQL servers for tests are started on Linux alone.");
}

}  // namespace host
