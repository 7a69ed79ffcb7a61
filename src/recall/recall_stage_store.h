#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "data/statements.h"
#include "recall/recall_stages.h"

namespace recall {

// Where the stages of a recall are kept: their rows, the rows of what they send, and the columns of the recall's own
// row that say the same for older programs. All throw session::DatabaseError.
class RecallStageStore {
 public:
  explicit RecallStageStore(session::Database& database) : database_(database), statements_(database) {}

  // The value of a column of the recall's row.
  using Column = std::function<std::string(std::string_view name)>;

  // The column of the recall's own row for a stage's period.
  static std::string_view PeriodColumn(int place);

  // The stages' rows; where there are none, what the recall's own columns say. A stage that has no period there has the
  // usual one; where none has, they lie on the usual ladder.
  RecallStages Read(std::int32_t recall, const Column& column) const;

  // Nobody has deleted it.
  bool IsThere(std::int32_t recall) const;

  // Within a transaction. What was stored and is no stage any more goes, with the patients' contact orders for it;
  // those of a stage that has moved go with it. Of several rows of
  // one stage, that which was read stays. The stages are given their rows.
  void Write(std::int32_t recall, const RecallStages& stored, RecallStages& stages) const;
  // Within a transaction, behind `Write`: the recall's own columns say what its stages' rows say. A copy of all recalls
  // as they were is made before that is done for the first time.
  void Mirror(std::int32_t recall, const RecallStages& stages) const;

 private:
  bool ReadRows(std::int32_t recall, RecallStages& stages) const;
  void RemoveOrders(std::int32_t recall, std::int32_t sequence) const;
  void RemoveRows(const data::Sql& stages) const;
  void MoveOrders(std::int32_t recall, std::int32_t from, std::int32_t to) const;
  void WriteStage(std::int32_t recall, std::int32_t kind, int place, Stage& stage) const;
  void MirrorStage(std::int32_t recall, int place, const Stage& stage) const;
  void BackUp() const;
  data::Sql OrdersOf(std::int32_t recall, std::int32_t sequence) const;

  session::Database& database_;
  data::Statements statements_;
};

}  // namespace recall
