#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "editing/rules.h"

namespace insurance {

class frmCopyPlanOpts;

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

  // The last word before anything is written, which comes after the questions: throws editing::Refusal when the plan
  // is not held any more.
  std::function<void()> RequireHold;

  // True when the plan's details were changed; what could not be done has been told.
  bool Run(const Target& target) const;

 private:
  // Throws editing::Refusal, and session::DatabaseError.
  void Copy(const Target& target, const frmCopyPlanOpts& choice) const;
};

}  // namespace insurance
