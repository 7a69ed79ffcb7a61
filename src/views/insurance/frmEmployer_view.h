#pragma once

#include "insurance/frmEmployer.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmEmployer(FormDialog& dialog, insurance::frmEmployer& form);

}  // namespace views
