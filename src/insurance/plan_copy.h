#pragma once

#include <cstdint>
#include <string>

#include "editing/rules.h"

namespace insurance {

// Fills the details of one plan from another's, as the person chooses.
class PlanCopy : private editing::Rules {
 public:
  // The plan that is filled.
  struct Target {
    std::int32_t carrier = 0;
    std::string group_number;
    std::int32_t plan = 0;  // 0 for the office's global plan
    std::int32_t link = 0;  // of employer and plan; 0 where it is not known
    std::string text;       // as a person knows it
  };

  explicit PlanCopy(const session::ScreenContext& context) : Rules(context) {}

  // True when the plan's details were changed; what could not be done has been told.
  bool Run(const Target& target) const;
};

}  // namespace insurance
