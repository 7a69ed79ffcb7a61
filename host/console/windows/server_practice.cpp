#include "console/server_practice.h"

#include "console/step_failure.h"

namespace host {

StagedPractice MakeServerPractice(const PracticeLine& /*line*/) {
  Fail("scenarios play on PostgreSQL on Linux alone");
}

}  // namespace host
