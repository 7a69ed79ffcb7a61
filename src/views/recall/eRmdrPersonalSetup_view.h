#pragma once

#include "recall/eRmdrPersonalSetup.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_eRmdrPersonalSetup(FormDialog& dialog, recall::eRmdrPersonalSetup& form);

}  // namespace views
