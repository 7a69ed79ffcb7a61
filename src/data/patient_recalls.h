#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/statements.h"

namespace data {

// A recall that is tracked for a patient.
struct PatientRecall {
  std::int32_t recall = 0;  // `RCRecNum`
  std::string title;
  session::Value location;           // `OffLocID`
  std::vector<std::int32_t> stages;  // `emsSeq`
};

// By title. Throws session::DatabaseError.
std::vector<PatientRecall> RecallsOf(const Statements& statements, std::int32_t patient);

}  // namespace data
