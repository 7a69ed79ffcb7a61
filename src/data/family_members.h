#pragma once

#include <cstdint>
#include <vector>

#include "data/statements.h"

namespace data {

// Everybody of the patient's family, whether he heads it or is a member, himself among them; him alone when he has
// none. Throw session::DatabaseError.
std::vector<std::int32_t> FamilyMembers(const Statements& statements, std::int32_t patient);
// The patient alone; nobody when he is gone.
std::vector<std::int32_t> OneMember(const Statements& statements, std::int32_t patient);

}  // namespace data
