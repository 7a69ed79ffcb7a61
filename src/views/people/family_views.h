#pragma once

#include <wx/sizer.h>

#include "people/employer_slots.h"
#include "people/family_members.h"
#include "views/form_dialog.h"

// The parts of the family screen that have rules of their own.
namespace views {

// A line for each employer and the plan through him, and below it what is known of both.
wxSizer* MakeEmployerSlots(FormDialog& dialog, people::EmployerSlots& slots);
// The grid and the commands below it, on a window.
wxSizer* MakeFamilyMembers(wxWindow* parent, people::FamilyMembers& members);

}  // namespace views
