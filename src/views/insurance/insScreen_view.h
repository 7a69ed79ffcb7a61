#pragma once

#include "insurance/insScreen.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_insScreen(FormDialog& dialog, insurance::insScreen& form);

}  // namespace views
