#pragma once

#include "login/frmLogin.h"
#include "views/form_dialog.h"

namespace host {

void LayOut_frmLogin(views::FormDialog& dialog, frmLogin& form);

}  // namespace host
