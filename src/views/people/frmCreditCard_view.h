#pragma once

#include "people/frmCreditCard.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmCreditCard(FormDialog& dialog, people::frmCreditCard& form);

}  // namespace views
