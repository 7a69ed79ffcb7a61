#pragma once

#include <functional>
#include <string>

#include "session/session.h"

// Commands on employers, carriers, group plans, plan links and families run statement by statement, so that a process
// that is killed leaves one half done.
namespace host {

// Tells what such a command left in the session's office, a sentence a fault ("Reed, Ann [7]: holding 17 has ended, but
// patients are still covered through it."), and with `mend` takes it back first, so that the command can be given
// again: what ended without a successor is opened again, and orders are counted anew. What leads to records that are
// gone ends. Nobody else may change the practice meanwhile. Throws session::DatabaseError.
void CheckLinks(session::Session& session, bool mend, const std::function<void(const std::string& fault)>& tell);

}  // namespace host
