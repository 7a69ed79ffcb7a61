#pragma once

#include <functional>
#include <string>

#include "forms/dates.h"

namespace host {

// Who writes to a practice, and when: what its change log says.
struct ChangeAuthor {
  std::string name;
  std::function<forms::DateTime()> clock;
};

}  // namespace host
