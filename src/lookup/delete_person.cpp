#include "lookup/delete_person.h"

namespace lookup {
namespace {

bool TellNotBuilt(const session::ScreenContext& context, const DeletedRow& row) {
  context.user.Tell("Deleting \"" + row.name + "\" is not part of this version yet. Nothing was changed.",
                    std::string(forms::kSuiteTitle), forms::Icon::Information);
  return false;
}

}  // namespace

bool DeleteProvider(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                    const DeletedRow& row) {
  return TellNotBuilt(context, row);
}

bool DeleteEmployee(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                    const DeletedRow& row) {
  return TellNotBuilt(context, row);
}

bool DeleteFamilyHead(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                      const DeletedRow& row) {
  return TellNotBuilt(context, row);
}

}  // namespace lookup
