#pragma once

#include <array>
#include <cstdint>
#include <ostream>

#include "data/shared_records.h"

namespace test_support {

// What a person commands of a shared record.
struct SharedCommand {
  data::SharedRecord kind;
  std::int32_t old_id;
  std::int32_t new_id;  // 0 deletes the old one

  void Run(session::Session& session) const {
    const data::SharedRecords records(session);
    new_id == 0 ? records.Delete(kind, old_id) : records.Replace(kind, old_id, new_id);
  }
};

inline std::ostream& operator<<(std::ostream& out, const SharedCommand& command) {
  constexpr std::array kNames = {"employer", "carrier", "group plan", "plan link", "pharmacy"};
  out << (command.new_id == 0 ? "delete " : "replace ") << kNames.at(static_cast<std::size_t>(command.kind)) << " "
      << command.old_id;
  return command.new_id == 0 ? out : out << " by " << command.new_id;
}

}  // namespace test_support
