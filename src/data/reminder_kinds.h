#pragma once

#include <cstdint>

#include "data/reminders.h"
#include "session/session.h"

namespace data {

// The `emmID` of the kind's row in the office; 0 when it has none. Where a location has one of its own beside that for
// all locations, the latter is meant. Throws session::DatabaseError.
std::int32_t FindReminderKindRow(session::Database& database, ReminderKind kind);
// As `FindReminderKindRow`; a missing row is added, for all locations.
std::int32_t ReminderKindRow(session::Database& database, ReminderKind kind);

}  // namespace data
