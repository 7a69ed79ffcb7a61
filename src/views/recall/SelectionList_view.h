#pragma once

#include <wx/panel.h>

#include "recall/SelectionList.h"

namespace views {

// The heading above the list, which is so many characters wide and lines high.
wxPanel* MakeSelectionList(wxWindow* parent, recall::SelectionList& control, int characters, int lines);

}  // namespace views
