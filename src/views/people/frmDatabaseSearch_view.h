#pragma once

#include "people/frmDatabaseSearch.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmDatabaseSearch(FormDialog& dialog, people::frmDatabaseSearch& form);

}  // namespace views
