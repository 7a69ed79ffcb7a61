#pragma once

#include "insurance/frmCopyPlanOpts.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmCopyPlanOpts(FormDialog& dialog, insurance::frmCopyPlanOpts& form);

}  // namespace views
