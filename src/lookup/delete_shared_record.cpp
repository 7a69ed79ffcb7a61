#include "lookup/delete_shared_record.h"

namespace lookup {
namespace {

bool TellNotBuilt(const session::ScreenContext& context, const DeletedRow& row) {
  context.user.Tell("Deleting \"" + row.name + "\" is not part of this version yet. Nothing was changed.",
                    std::string(forms::kSuiteTitle), forms::Icon::Information);
  return false;
}

}  // namespace

bool DeleteEmployer(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                    const DeletedRow& row) {
  return TellNotBuilt(context, row);
}

bool DeleteCarrier(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                   const DeletedRow& row) {
  return TellNotBuilt(context, row);
}

bool DeleteGroupPlan(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                     const DeletedRow& row) {
  return TellNotBuilt(context, row);
}

bool DeletePharmacy(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                    const DeletedRow& row) {
  return TellNotBuilt(context, row);
}

}  // namespace lookup
