#pragma once

#include "automation/com_ptr.h"
#include "entry/dispatch.h"

namespace host {

// An automation object's members as its type information tells them, called late-bound; hidden ones are left out. A
// property that holds an object is only read. A call that the object refuses throws std::runtime_error with its reason;
// an argument or property whose text does not fit throws std::invalid_argument.
entry::Dispatch MembersOf(const automation::ComPtr<IDispatch>& object, std::string class_name);

}  // namespace host
