#pragma once

#include "insurance/frmEditCoverage.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmEditCoverage(FormDialog& dialog, insurance::frmEditCoverage& form);

}  // namespace views
