#pragma once

#include "desk/public_classes.h"

namespace host {

// The classes of the TWSESC22.dll beside this program, which need not be registered. Throws std::runtime_error when it
// is not there, and automation::ComError when it refuses.
std::unique_ptr<PublicClasses> ClassesOfTheComponent(forms::User& user);

}  // namespace host
