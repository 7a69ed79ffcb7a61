#pragma once

#include <windows.h>

#include "automation/com_ptr.h"
#include "automation/variant.h"
#include "forms/user.h"

namespace com {

using automation::ComPtr;

// Turns the exception that is being handled into a HRESULT, with its text as the thread's error information. What the
// database or the host's session refused is told to the person, and is a success for the host: the screen has ended.
HRESULT ReportException(forms::User* person, const IID& interface_id) noexcept;

// Runs a host's call: no exception passes, and the object outlives the call.
template <typename Operation>
HRESULT Guarded(IUnknown& object, forms::User* person, const IID& interface_id, Operation operation) noexcept {
  const ComPtr<IUnknown> alive(&object);
  try {
    operation();
    return S_OK;
  } catch (...) {
    return ReportException(person, interface_id);
  }
}

}  // namespace com
