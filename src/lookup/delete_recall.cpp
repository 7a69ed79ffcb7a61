#include "lookup/delete_recall.h"

#include "editing/recall_deletion.h"

namespace lookup {

bool DeleteRecall(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                  const DeletedRow& row) {
  return editing::DeleteRecallMaster(context, row.id, row.name);
}

}  // namespace lookup
