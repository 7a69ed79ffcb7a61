#include "editing/record_hold.h"

#include "editing/rules.h"

namespace editing {

std::string NameOf(const session::RecordHolder& holder) {
  const std::string user = holder.user.empty() ? "Another user" : holder.user;
  return holder.machine.empty() ? user : user + " on " + holder.machine;
}

std::string HeldText(const session::RecordHolder& holder) {
  return NameOf(holder) + (holder.silent ? " holds this record, but has given no sign of life for a while."
                                         : " is working on this record.");
}

RecordHold::~RecordHold() {
  if (holder_) {
    return;
  }
  try {
    suite_.ReleaseRecord(table_, id_);
  } catch (const session::DatabaseError&) {  // the suite takes the locks of an ended session over
    holder_.emplace();
  }
}

void RecordHold::Require() const {
  if (holder_) {
    throw Refusal(HeldText(*holder_) + " Nothing was changed.");
  }
  if (!suite_.KeepsRecord(table_, id_)) {
    const auto taker = suite_.HeldByAnother(table_, id_).value_or(session::RecordHolder());
    throw Refusal(
        NameOf(taker) +
        " has taken this record over while this program could not be reached. It cannot be saved from here any "
        "more; what you have entered is still on the screen.");
  }
}

}  // namespace editing
