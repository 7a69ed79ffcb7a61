#pragma once

#include <windows.h>

#include <string>

#include "automation/com_ptr.h"
#include "automation/variant.h"
#include "forms/user.h"
#include "session/connection.h"

namespace com {

using automation::ComPtr;

// Turns the exception that is being handled into a HRESULT, with its text as the thread's error information.
HRESULT ReportException(const IID& interface_id) noexcept;

// Runs a host's call: no exception passes, and the object outlives the call.
template <typename Operation>
HRESULT Guarded(IUnknown& object, const IID& interface_id, Operation operation) noexcept {
  const ComPtr<IUnknown> alive(&object);
  try {
    operation();
    return S_OK;
  } catch (...) {
    return ReportException(interface_id);
  }
}

// Runs what a call shows the person. What the database or the host's session refused he is told, and it is a success
// for the host: the screen has ended.
template <typename Operation>
void TellingRefusals(forms::User& person, Operation operation) {
  try {
    operation();
  } catch (const session::DatabaseError& error) {
    person.Tell(error.Told(), std::string(forms::kSuiteTitle), forms::Icon::Critical);
  }
}

}  // namespace com
