#pragma once

#include <wx/button.h>

#include "forms/list_box.h"

namespace views {

// A button that opens a list as a menu. An entry with a tab stands in the menu that its first column names.
wxButton* MakeMenuList(wxWindow* parent, forms::ListBox& control, const wxString& caption);

}  // namespace views
