#pragma once

#include <cstdint>

#include "session/session.h"

namespace data {

// Deletes a recall master with its stages, their texts and the patients' contact orders for it. What `RecTable` keeps
// of its patients is the recall utility's to clear. The caller has a transaction open. False when the recall is not
// there any more. Throws session::DatabaseError.
bool RemoveRecallMaster(session::Database& database, std::int32_t recall);

// How many patients are tracked for the recall. Throws session::DatabaseError.
std::int32_t PatientsOfRecall(session::Database& database, std::int32_t recall);

}  // namespace data
