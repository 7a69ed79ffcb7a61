#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "lookup/list_catalogue.h"
#include "lookup/list_events.h"
#include "session/screens.h"

namespace lookup {

// How a caller wants a list shown.
struct LookUpOptions {
  std::string title = {};     // empty: the kind's default
  std::int32_t selected = 0;  // the record to start on
  ListNarrowing narrowing = {};
  std::int32_t show_mode = 0;
  bool multi_select = false;
  bool no_double_click = false;
  bool show_facility_options = false;
  bool show_patient_buttons = false;    // on lists of persons
  bool skip_list_if_new = false;        // the employee list is answered by New without being shown
  std::int32_t new_employee_login = 0;  // the login that a new employee is entered for; 0 for none
  ListEvents events = {};
};

// Shows a list, one of `session::LookUpListTypes`, and tells the host the choice. Any other type shows nothing.
session::ListOutcome ShowLookUpList(const session::ScreenContext& context, std::int32_t type,
                                    const LookUpOptions& options);

// Nothing when cancelled. An empty title is the list's own.
std::optional<session::PickedText> ShowPickList(const session::ScreenContext& context, session::PickList list,
                                                std::string_view title);

}  // namespace lookup
