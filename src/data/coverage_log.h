#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "session/session.h"

namespace data {

// Through whose holding, of which link of employer and plan, a patient is covered.
struct CoveredThrough {
  std::int32_t subscriber = 0;
  std::int32_t link = 0;
};

// What the patient's comment log is told of the coverage in that order: added where there was none, removed where there
// is none now, else changed. A subscriber of another family is told of last. Throw session::DatabaseError.
session::LogEntry CoverageEntry(session::Session& session, std::int32_t patient, std::int32_t order,
                                const std::optional<CoveredThrough>& original,
                                const std::optional<CoveredThrough>& now);
// The line that ends an entry where the subscriber is of another family than the patient, as the choice of holdings
// counts them; empty otherwise.
std::string NonFamilyLine(session::Session& session, std::int32_t patient, std::int32_t order, std::int32_t subscriber);

}  // namespace data
