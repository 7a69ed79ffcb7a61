#pragma once

#include "people/frmContacts.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmContacts(FormDialog& dialog, people::frmContacts& form);

}  // namespace views
