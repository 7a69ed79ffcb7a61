#pragma once

#include <wx/panel.h>

#include "forms/rich_text_box.h"

namespace views {

// A field `characters` wide and `lines` high with buttons for the formats above it; Ctrl+B, Ctrl+I and Ctrl+U do the
// same. A plain one has no buttons, nor has one that only shows a text: `formats` is false then.
wxPanel* MakeRichTextBox(wxWindow* parent, forms::RichTextBox& control, int characters, int lines, bool formats = true);

}  // namespace views
