#pragma once

#include "insurance/GrpPlaScreen.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_GrpPlaScreen(FormDialog& dialog, insurance::GrpPlaScreen& form);

}  // namespace views
