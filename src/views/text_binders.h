#pragma once

#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "forms/label.h"
#include "forms/text_box.h"

namespace views {

// A field `characters` wide; a multi-line one is `lines` high.
wxTextCtrl* MakeTextBox(wxWindow* parent, forms::TextBox& control, int characters, int lines = 1);
// A text as it is: '&' is one.
wxStaticText* MakeLabel(wxWindow* parent, forms::Label& control);
// The same, wrapped into lines of so many pixels.
wxStaticText* MakeWrapped(wxWindow* parent, forms::Label& control, int width);
// The caption before a field, made just before it: Alt and the letter after '&' go to the field.
wxStaticText* MakeCaption(wxWindow* parent, forms::Label& control);

// The width of so many digits in a window's own font.
int FieldWidth(const wxWindow& window, int characters);
// Makes a field that wide, and one line high.
void SizeField(wxTextCtrl& field, int characters);

}  // namespace views
