#pragma once

#include <cstdint>
#include <string>

namespace session {

// What `ListOptions::show_mode` knows besides the window as it always is.
inline constexpr std::int32_t kLookOnly = 2;

// How a caller wants a list shown, and which records he wants in it.
struct ListOptions {
  std::string title = {};                  // empty: the kind's default
  std::int32_t selected = 0;               // the record to start on
  bool allow_delete = true;                // on lists that delete
  bool multi_select = false;               // several rows may be chosen
  bool no_double_click = false;            // a row is not chosen by opening it
  bool skip_if_new = false;                // the employee list is not shown: a new employee is wanted
  bool show_patient_buttons = false;       // the ways to the suite's screens of a patient, on lists of persons
  bool show_facility_options = false;      // the panel of locations
  std::int32_t group_plan_company = 0;     // group plans of this carrier alone; 0 for all
  std::int32_t family_head_including = 0;  // this patient among the family heads, head or not; 0 for none
  std::int32_t employer_patient = 0;       // whose employers; 0 for all
  std::int32_t new_employee_login = 0;     // the login that a new employee is entered for; 0 for none
  std::int32_t show_mode = 0;              // `kLookOnly`: nothing is changed from the list
  bool select_mode = false;                // the list is there to choose from: it neither deletes nor leads elsewhere
  bool include_insurance = false;          // the carrier with each person
  std::string initial_field = {};          // the column that typing starts in; empty for the one that is sorted by
  std::string printer = {};                // of the list, by the host's name for it; empty for the machine's own
  std::string wait_text = {};              // while its rows are read; empty for the list's own
};

// Visits each option of one ListOptions, by the name that a host sets it by: visit(const char* name, auto& value).
template <typename Options, typename Visit>
void VisitOptions(Options& options, const Visit& visit) {
  visit("ListTitle", options.title);
  visit("SelectedID", options.selected);
  visit("AllowDelete", options.allow_delete);
  visit("MultiSel", options.multi_select);
  visit("No_Double_Click", options.no_double_click);
  visit("Skip_List_IF_New", options.skip_if_new);
  visit("ShowPatientButtons", options.show_patient_buttons);
  visit("ShowFacilityOptions", options.show_facility_options);
  visit("GroupPlanCompanyID", options.group_plan_company);
  visit("FamHeadIncPatID", options.family_head_including);
  visit("EmployerPatientID", options.employer_patient);
  visit("NewEmployeePasswordID", options.new_employee_login);
  visit("ShowMode", options.show_mode);
  visit("bSelectMode", options.select_mode);
  visit("Include_Ins", options.include_insurance);
  visit("InitField", options.initial_field);
}

}  // namespace session
