#pragma once

#include <wx/panel.h>

#include <functional>

namespace views {

// The widget that `make` makes on the parent it is given, in a thin frame where the toolkit draws none of its own.
wxPanel* Framed(wxWindow* parent, const std::function<wxWindow*(wxWindow* parent)>& make);

}  // namespace views
