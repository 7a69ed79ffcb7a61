#pragma once

#include "recall/frmEreminderContact.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmEreminderContact(FormDialog& dialog, recall::frmEreminderContact& form);

}  // namespace views
