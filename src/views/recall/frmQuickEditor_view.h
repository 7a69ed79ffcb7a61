#pragma once

#include "recall/frmQuickEditor.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmQuickEditor(FormDialog& dialog, recall::frmQuickEditor& form);

}  // namespace views
