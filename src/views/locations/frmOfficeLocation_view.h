#pragma once

#include "locations/frmOfficeLocation.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmOfficeLocation(FormDialog& dialog, locations::frmOfficeLocation& form);

}  // namespace views
