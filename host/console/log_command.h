#pragma once

#include <ostream>
#include <string>

#include "practice/change_log.h"

namespace host {

// Prints the change log of a practice's first office, a line an entry, oldest first:
// "2026-11-21 14:05:00  ann  changed PATable 17 pADD1: [12 Elm St] -> [14 Elm St]". Throws session::DatabaseError.
void PrintChanges(const std::string& url, const ChangeFilter& filter, std::ostream& output);

}  // namespace host
