#pragma once

#include "lookup/delete_flow.h"

namespace lookup {

// Takes a recall master from the practice and from all its patients.
bool DeleteRecall(const session::ScreenContext& context, const session::ListOptions& options, const DeletedRow& row);

}  // namespace lookup
