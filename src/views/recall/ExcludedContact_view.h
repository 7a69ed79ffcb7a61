#pragma once

#include <wx/panel.h>

#include "recall/ExcludedContact.h"

namespace views {

// The methods that are never used beside the order of the others.
wxPanel* MakeExcludedContact(wxWindow* parent, recall::ExcludedContact& control);

}  // namespace views
