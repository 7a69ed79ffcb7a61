#pragma once

#include <optional>

#include "lookup/choice_check.h"
#include "lookup/delete_flow.h"
#include "session/screens.h"

namespace lookup {

// What a kind of list can do with its records; its tool bar shows the buttons of that and no others.
struct ListCommands {
  const char* record = "row";                     // what one of them is called: "insurance company"
  std::optional<session::RecordKind> edits = {};  // New and Edit, in this record's screen
  DeleteFlow deletes = nullptr;                   // Delete
  bool leads_to_patients = false;                 // the ways to a patient's screens, where the host wants them
  bool prints_envelopes = false;                  // Print Envelope
  bool prints_labels = false;                     // Print Label, as many as the person says
  bool links_payers = false;      // Link to and Un-link from Electronic Payer, and payer IDs typed into cells
  ChoiceCheck accepts = nullptr;  // whether a record may be chosen; null where every one may
};

// Throws std::out_of_range for no kind of list.
const ListCommands& CommandsOf(session::LookUpListTypes type);

}  // namespace lookup
