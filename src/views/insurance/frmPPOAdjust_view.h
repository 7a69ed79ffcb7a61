#pragma once

#include "insurance/frmPPOAdjust.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmPPOAdjust(FormDialog& dialog, insurance::frmPPOAdjust& form);

}  // namespace views
