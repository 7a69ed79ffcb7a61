#pragma once

#include "lookup/frmSearchWindow.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmSearchWindow(FormDialog& dialog, lookup::frmSearchWindow& form);

}  // namespace views
