#pragma once

#include "lookup/delete_flow.h"

// Deleting persons from their lists.
namespace lookup {

bool DeleteFamilyHead(const session::ScreenContext& context, const session::ListOptions& options,
                      const DeletedRow& row);
// Takes a provider from the list: another takes over what is assigned to him, and he stays an employee.
bool DeleteProvider(const session::ScreenContext& context, const session::ListOptions& options, const DeletedRow& row);
// Employees are deleted on their editing screen, which it offers to open.
bool DeleteEmployee(const session::ScreenContext& context, const session::ListOptions& options, const DeletedRow& row);

}  // namespace lookup
