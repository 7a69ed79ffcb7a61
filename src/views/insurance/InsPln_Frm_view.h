#pragma once

#include "insurance/InsPln_Frm.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_InsPln_Frm(FormDialog& dialog, insurance::InsPln_Frm& form);

}  // namespace views
