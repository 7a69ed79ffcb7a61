#pragma once

#include <wx/colour.h>

namespace views {

// A text's colour on a background: the wanted one, as far as it can be read there.
wxColour ReadableOn(const wxColour& back, const wxColour& wanted);

}  // namespace views
