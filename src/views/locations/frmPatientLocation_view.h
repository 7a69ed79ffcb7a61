#pragma once

#include "locations/frmPatientLocation.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_frmPatientLocation(FormDialog& dialog, locations::frmPatientLocation& form);

}  // namespace views
