#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/shared_record.h"
#include "session/session.h"

// How shared records are told of.
namespace data {

// As people know it: "Gold Plan [4711]" for a group plan and its number, the carrier and the group number for a link.
// Nothing when it is not there. Throws session::DatabaseError.
std::optional<std::string> NameOf(session::Session& session, SharedRecord kind, std::int32_t id);

// What the comment log of each subscriber is told of the record that was replaced or deleted now; the person is to be
// filled in. They throw session::DatabaseError.
session::LogEntry ReplacedEntry(session::Session& session, SharedRecord kind, std::int32_t old_id, std::int32_t new_id);
session::LogEntry DeletedEntry(session::Session& session, SharedRecord kind, std::int32_t id);

}  // namespace data
