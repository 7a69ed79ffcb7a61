#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "data/sql.h"
#include "session/session.h"

namespace data {

// A person's places for employers: each names a link of employer and plan, or the employer's link for no coverage.
inline constexpr std::array<Words, 4> kEmployerPlaces = {"pEmpID1", "pEmpID2", "pEmpID3", "pEmpID4"};

// Before a place of the person names another link: what he holds of the one, and everybody's coverage through it, goes
// over to the other, or ends where the other stands for no coverage or is 0. A plan of which he holds nothing yet he
// holds from now on. Returned is what the comment logs of those covered are told, once it is done. What stops half-way
// is finished when the same is asked for again. Throws session::DatabaseError.
[[nodiscard]] std::vector<session::LogEntry> ChangeEmployerPlace(session::Session& session, std::int32_t person,
                                                                 std::int32_t from, std::int32_t to);

}  // namespace data
