#pragma once

#include "console/practice_line.h"

namespace host {

// A new practice on a PostgreSQL server of this process's own, as the copy of one that is made once for each kind of
// line; it is dropped after use. It belongs to a login of its own, and the offices of the line are open to a desk's.
// Fails where no server can be started.
StagedPractice MakeServerPractice(const PracticeLine& line);

}  // namespace host
