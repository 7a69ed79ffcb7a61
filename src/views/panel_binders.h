#pragma once

#include <wx/panel.h>

#include <functional>

#include "forms/panels.h"

namespace views {

class FormDialog;

// Parts of the screen that show and hide as one: the widgets of the controls on them are its children.
wxPanel* MakePanel(wxWindow* parent, forms::Panel& control);
// A panel outside the sizers that drops just below the control that `anchor` names, over what is there. Call
// `SetSizerAndFit` on it when it is filled.
wxPanel* MakeDropPanel(wxWindow* parent, forms::Panel& control, std::function<const forms::Control&()> anchor);
// Lets the timer's time pass while the dialog is in front.
void RunTimer(FormDialog& dialog, forms::Timer& control);

}  // namespace views
