#pragma once

#include "recall/frmEDMsg.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmEDMsg(FormDialog& dialog, recall::frmEDMsg& form);

}  // namespace views
