#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "automation/ado_error.h"
#include "automation/com_ptr.h"
#include "automation/variant.h"

namespace host {

// What the database said of a call that failed.
struct ProviderError {
  std::string description;
  std::int32_t number = 0;      // the caller's
  int native = 0;               // the engine's own
  std::string state = "HY000";  // SQLSTATE
};
using ProviderErrors = std::vector<ProviderError>;

// A connection's errors, shaped as ADO documents Errors (Count, Item by number, Clear) and Error (Description, Number,
// NativeError, Source, SQLState). Shows `errors` as they are when it is asked.
automation::ComPtr<IDispatch> MakeErrorsObject(std::shared_ptr<ProviderErrors> errors);
// One of them, as Item gives it; throws session::DatabaseError for one that is not there.
automation::Variant ErrorAt(const ProviderErrors& errors, std::int32_t place);

}  // namespace host
