#pragma once

#include "people/frmContacts.h"
#include "people/frmDatabaseSearch.h"
#include "people/patScreen_SM.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmContacts(FormDialog& dialog, people::frmContacts& form);
void LayOut_frmDatabaseSearch(FormDialog& dialog, people::frmDatabaseSearch& form);
void LayOut_patScreen_SM(FormDialog& dialog, people::patScreen_SM& form);

}  // namespace views
