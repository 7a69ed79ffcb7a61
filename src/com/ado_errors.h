#pragma once

#include <string>

#include "automation/dispatch_object.h"

namespace com {

// A failed call of an ADO connection in the words of its Errors, where it has any of that call; in the call's own
// otherwise. A loss that the host tells stays what it is. The connection is also lost where an error has an SQLState
// that says so. A `change` was sent then, and is unanswered, unless the state is of a connection that there was not.
session::DatabaseError ProviderError(const automation::DispatchObject& connection,
                                     const session::DatabaseError& failure, const std::string& sql, bool change);

}  // namespace com
