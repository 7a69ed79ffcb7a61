#pragma once

#include <memory>

#include "automation/com_ptr.h"
#include "session/session.h"

namespace host {

// A session as the component's hosts hand it over (PV), with every member that docs/integration.md lists. What the
// session throws becomes the caller's automation error. `Connection` gives one connection object for as long as it
// lives.
//
// The session must outlive the object, its connection object and the recordsets of that.
automation::ComPtr<IDispatch> MakeSessionObject(session::Session& session);
// The objects keep the session alive.
automation::ComPtr<IDispatch> MakeSessionObject(std::shared_ptr<session::Session> session);

}  // namespace host
