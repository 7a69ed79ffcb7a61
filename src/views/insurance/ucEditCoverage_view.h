#pragma once

#include <wx/sizer.h>

#include "insurance/ucEditCoverage.h"

namespace views {

// Tool bar, coverages, and below them where a further one is chosen.
wxSizer* LayOut(wxWindow* parent, insurance::ucEditCoverage& coverages);

}  // namespace views
