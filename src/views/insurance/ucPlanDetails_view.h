#pragma once

#include <wx/sizer.h>

#include "insurance/ucPlanDetails.h"
#include "views/form_dialog.h"

namespace views {

// The details of a plan with their commands; the help drops over the dialog.
wxSizer* LayOut(FormDialog& dialog, wxWindow* parent, insurance::ucPlanDetails& details);

}  // namespace views
