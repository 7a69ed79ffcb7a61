#pragma once

#include <wx/panel.h>

#include "forms/label.h"
#include "forms/user_control.h"

namespace views {

class FormWindow;

// Parts of the screen that show and hide as one: the widgets of the controls on them are its children.
wxPanel* MakePanel(wxWindow* parent, forms::Panel& control);
// A panel outside the sizers that drops just below the control's field, over what is there. Call `SetSizerAndFit` on
// it when it is filled.
// A text beside the field that it is about, over the page, the field and what drops below the field left clear.
wxPanel* MakeBalloon(wxWindow* parent, forms::DropPanel& control, forms::Label& text);
wxPanel* MakeDropPanel(wxWindow* parent, forms::DropPanel& control);
// Lets the timer's time pass while the dialog is in front.
void RunTimer(FormWindow& dialog, forms::Timer& control);

}  // namespace views
