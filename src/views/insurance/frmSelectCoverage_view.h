#pragma once

#include "insurance/frmSelectCoverage.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmSelectCoverage(FormDialog& dialog, insurance::frmSelectCoverage& form);

}  // namespace views
