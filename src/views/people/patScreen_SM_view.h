#pragma once

#include "people/patScreen_SM.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_patScreen_SM(FormDialog& dialog, people::patScreen_SM& form);

}  // namespace views
