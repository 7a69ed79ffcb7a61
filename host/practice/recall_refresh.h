#pragma once

#include <cstdint>
#include <optional>

#include "forms/dates.h"
#include "forms/period_code.h"
#include "practice/practice.h"

namespace host {

// What a recall utility has found and done.
struct RefreshedRecall {
  bool there = false;  // whether the recall master is
  int patients = 0;    // tracked for it
  int moved = 0;       // whose due date changed, or whose rows went with the recall
};

// The day that comes so long after the last visit; a month or year that lacks the day ends on its last. Nothing for a
// period that is not positive, or a day past the calendar.
std::optional<forms::Date> DueDate(forms::Date last_visit, const forms::PeriodCode& period);

// What the recall utility does: works out the due dates of a recall's patients anew from their last visits, or, where
// the recall was deleted, takes it from its patients. One transaction. Patients without a last visit keep what they
// have, and all do while the recall has no period; a number that is not positive names no recall, and changes nothing.
// Throws session::DatabaseError.
RefreshedRecall RefreshRecall(OfficeDatabase& office, std::int32_t recall);

}  // namespace host
