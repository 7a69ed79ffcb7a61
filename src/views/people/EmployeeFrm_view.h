#pragma once

#include "people/EmployeeFrm.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_EmployeeFrm(FormDialog& dialog, people::EmployeeFrm& form);

}  // namespace views
