#pragma once

#include "lookup/delete_flow.h"

// Deleting persons from their lists.
namespace lookup {

bool DeleteProvider(const session::ScreenContext& context, const session::ListOptions& options, const DeletedRow& row);
bool DeleteEmployee(const session::ScreenContext& context, const session::ListOptions& options, const DeletedRow& row);
bool DeleteFamilyHead(const session::ScreenContext& context, const session::ListOptions& options,
                      const DeletedRow& row);

}  // namespace lookup
