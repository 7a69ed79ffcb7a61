#pragma once

#include <cstdint>
#include <string>

#include "data/shared_record.h"
#include "editing/record_hold.h"
#include "session/screens.h"

namespace editing {

// How messages speak of a kind of shared record.
struct SharedRecordWords {
  std::string noun;       // "Insurance Company"
  std::string plural;     // "insurance companies"
  std::string different;  // what else may be selected: "plan"
};
SharedRecordWords WordsOf(data::SharedRecord kind);

// Lets the person choose the record that takes the place of a shared one, which is held, and puts it there everywhere.
// False when he chose none: nothing was changed. Throws Refusal and session::DatabaseError.
bool ReplaceSharedRecord(const session::ScreenContext& context, data::SharedRecord kind, std::int32_t id,
                         const std::string& name, const RecordHold& hold);

}  // namespace editing
