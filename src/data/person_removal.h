#pragma once

#include <cstdint>

#include "session/session.h"

namespace data {

// Deletes a person with all that is his alone: his family rows, his locations and his contact orders. What he holds and
// is covered by is ended, and so is what others are covered by through him. The caller has a
// transaction open. Throws session::DatabaseError.
void RemovePerson(session::Session& session, std::int32_t person);

}  // namespace data
