#pragma once

#include <cstdint>

#include "session/session.h"

namespace host {

// The figures that the suite's ledger reports of a person's account; zero for one it does not know.
session::AccountFigures ReadAccount(session::Database& database, std::int32_t person);
void WriteAccount(session::Database& database, std::int32_t person, const session::AccountFigures& figures);

}  // namespace host
