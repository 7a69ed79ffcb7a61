#pragma once

#include <wx/panel.h>

#include "people/employee_locations.h"
#include "people/login_rights.h"
#include "people/payroll_status.h"

// The parts of the employee screen that have rules of their own.
namespace views {

wxSizer* MakeLocationChoice(wxWindow* parent, people::EmployeeLocations& locations);
wxSizer* MakePayrollStatus(wxWindow* page, people::PayrollStatus& payroll);
wxSizer* MakeLoginRights(wxWindow* page, people::LoginRights& rights);

}  // namespace views
