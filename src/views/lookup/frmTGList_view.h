#pragma once

#include "lookup/frmTGList.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmTGList(FormDialog& dialog, lookup::frmTGList& form);

}  // namespace views
