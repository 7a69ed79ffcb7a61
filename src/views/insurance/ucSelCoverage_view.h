#pragma once

#include <wx/panel.h>

#include "insurance/ucSelCoverage.h"

namespace views {

// The tool bar, the plans, `lines` of them to be seen at least, and how many they are.
wxPanel* MakeSelCoverage(wxWindow* parent, insurance::ucSelCoverage& control, int lines);

}  // namespace views
