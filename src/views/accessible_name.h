#pragma once

#include <wx/window.h>

#include <string>

namespace views {

// Tells assistive tools what a widget is called; an empty name leaves what they would say by themselves.
void SetAccessibleName(wxWindow& widget, const std::string& name);
// What they hear.
std::string AccessibleName(const wxWindow& widget);

}  // namespace views
