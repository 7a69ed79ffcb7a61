#pragma once

#include <memory>

#include "automation/com_ptr.h"
#include "session/connection.h"

namespace host {

// A connection for callers by automation, shaped as ADO documents Connection: Execute(sql, RecordsAffected, Options),
// BeginTrans, CommitTrans, RollbackTrans, Cancel, State and Errors. RecordsAffected comes back as -1, unknown. A
// refused statement is the error 0x80040E14, a lost connection `automation::kConnectionLost` or `kChangeUnanswered`,
// and Errors tells the engine's words and number until a call succeeds. It is open and its session's own: Open and
// Close are refused.
//
// The connection must outlive the object and the recordsets that it gives.
automation::ComPtr<IDispatch> MakeConnectionObject(session::Connection& connection);
// The objects keep the connection alive.
automation::ComPtr<IDispatch> MakeConnectionObject(std::shared_ptr<session::Connection> connection);

}  // namespace host
