#pragma once

#include <optional>

#include "forms/currency.h"

namespace insurance {

// What a service costs under a plan with preferred providers.
struct PpoFees {
  forms::Currency office;
  forms::Currency allowed;      // negative where the plan names none
  forms::Currency calculation;  // on which the plan pays; negative where it names none
  double percent = 0;           // of it that the plan pays: 0 to 100, with four decimals
  std::optional<forms::Currency> typed_payment = {};
};

// Who bears the office's fee; the three always add up to it.
struct PpoSplit {
  forms::Currency plan_payment;
  forms::Currency provider_adjustment;  // negative where a typed payment leaves more than the office's fee
  forms::Currency patient_portion;
};

// In whole numbers throughout; half a cent goes away from zero. A typed payment takes the place of the plan's, and the
// patient still owes what the plan's leaves of the allowed fee. Throws std::overflow_error.
PpoSplit SplitFee(const PpoFees& fees);

}  // namespace insurance
