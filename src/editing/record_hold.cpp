#include "editing/record_hold.h"

namespace editing {

RecordHold::~RecordHold() {
  if (!held_) {
    return;
  }
  try {
    suite_.ReleaseRecord(table_, id_);
  } catch (const session::DatabaseError&) {  // the suite takes the locks of an ended session over
    held_ = false;
  }
}

}  // namespace editing
