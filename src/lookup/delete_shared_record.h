#pragma once

#include "lookup/delete_flow.h"

// Deleting records that many patients share: each is told how many, and may be replaced instead.
namespace lookup {

bool DeleteEmployer(const session::ScreenContext& context, const session::ListOptions& options, const DeletedRow& row);
bool DeleteCarrier(const session::ScreenContext& context, const session::ListOptions& options, const DeletedRow& row);
bool DeleteGroupPlan(const session::ScreenContext& context, const session::ListOptions& options, const DeletedRow& row);
bool DeletePharmacy(const session::ScreenContext& context, const session::ListOptions& options, const DeletedRow& row);

}  // namespace lookup
