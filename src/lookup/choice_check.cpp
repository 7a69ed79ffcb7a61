#include "lookup/choice_check.h"

#include "data/literal.h"
#include "data/statements.h"
#include "editing/rules.h"
#include "lookup/shared_lists.h"

namespace lookup {

bool IsFamilyHead(const session::ScreenContext& context, const session::ListOptions& options, std::int32_t id) {
  if (id == options.family_head_including) {
    return true;
  }
  const data::Statements statements(context.session);
  const bool head = !session::IsNull(statements.SelectValue("SELECT pID FROM PATABLE WHERE pID=" + data::Literal(id) +
                                                            " AND (" + kFamilyHeads + ")" + statements.Office()));
  if (!head) {
    editing::Rules(context).Tell(
        "The selected person is not a family head. Please re-index this list by selecting 'Re-Index Family Head List' "
        "from the 'Help' menu on the Patient Look-Up-List.",
        forms::Icon::Information);
  }
  return head;
}

}  // namespace lookup
