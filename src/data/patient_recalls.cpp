#include "data/patient_recalls.h"

#include <algorithm>

#include "data/literal.h"
#include "data/reminders.h"

namespace data {
namespace {

std::vector<std::int32_t> StagesOf(const Statements& statements, std::int32_t recall) {
  std::vector<std::int32_t> stages;
  for (const auto rows = statements.Select(
           "Select emsSeq from emsTable where emsLinTyp=" + Literal(static_cast<std::int32_t>(ReminderLink::Recall)) +
           " and emsLinID=" + Literal(recall) + statements.Office() + " order by emsSeq");
       !rows->Eof(); rows->MoveNext()) {
    stages.push_back(session::ToId(rows->Get(0)));
  }
  stages.erase(std::unique(stages.begin(), stages.end()), stages.end());
  return stages;
}

// Those of a recall that has its periods in its own row only: the due stage, the past-due ones, the last.
std::vector<std::int32_t> StagesIn(const session::Recordset& row, std::size_t first_column) {
  std::vector<std::int32_t> stages;
  for (std::int32_t stage = kDueStage; stage <= kMostPastDueStages + 1; ++stage) {
    if (!session::ToText(row.Get(first_column + static_cast<std::size_t>(stage))).empty()) {
      stages.push_back(stage > kMostPastDueStages ? kStopTrackingStage : stage);
    }
  }
  return stages;
}

}  // namespace

std::vector<PatientRecall> RecallsOf(const Statements& statements, std::int32_t patient) {
  constexpr std::size_t kFirstPeriod = 3;
  std::vector<PatientRecall> recalls;
  for (const auto row = statements.Select(
           "Select RCRecNum, RCTtl, OffLocID, RCDuePer, RCLatPer1, RCLatPer2, RCLatPer3, RCLatPer4, RCLatPer5, "
           "RCLatPer6, RCCutOff from RSTable where RCRecNum in (select rRCRecNum from RecTable where rPid=" +
           Literal(patient) + statements.Office() + ")" + statements.Office() + " order by RCTtl, RCRecNum");
       !row->Eof(); row->MoveNext()) {
    PatientRecall recall{.recall = session::ToId(row->Get(0)),
                         .title = session::ToText(row->Get(1)),
                         .location = row->Get(2),
                         .stages = StagesIn(*row, kFirstPeriod)};
    recalls.push_back(std::move(recall));
  }
  for (PatientRecall& recall : recalls) {
    if (auto stages = StagesOf(statements, recall.recall); !stages.empty()) {
      recall.stages = std::move(stages);
    }
  }
  return recalls;
}

}  // namespace data
