#pragma once

#include "reminders/frmReminderOptions.h"
#include "views/form_dialog.h"

namespace host {

void LayOut_frmReminderOptions(views::FormDialog& dialog, frmReminderOptions& form);

}  // namespace host
