#pragma once

#include <wx/sizer.h>

#include "recall/message_editor.h"

namespace views {

// The text, with what belongs to it, and the sample beside it.
wxSizer* LayOut(wxWindow* parent, recall::MessageEditor& editor);

}  // namespace views
