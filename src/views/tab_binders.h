#pragma once

#include <wx/notebook.h>
#include <wx/panel.h>

#include "forms/panels.h"

namespace views {

// A strip of tabs with its pages, of which those that are not visible have no tab; Ctrl+PageUp and Ctrl+PageDown turn
// them. A strip without pages shows empty ones.
wxNotebook* MakeTabs(wxWindow* parent, forms::TabStrip& control);
// The window of a page on the strip: the parent of the widgets on it.
wxPanel* PageOf(wxNotebook* book, const forms::Panel& page);

}  // namespace views
