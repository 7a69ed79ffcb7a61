#pragma once

#include "lookup/frmExport.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmExport(FormDialog& dialog, lookup::frmExport& form);

}  // namespace views
