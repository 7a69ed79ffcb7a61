#pragma once

#include "recall/RecallSetupScreen.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_RecallSetupScreen(FormDialog& dialog, recall::RecallSetupScreen& form);

}  // namespace views
