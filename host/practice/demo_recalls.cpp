#include "practice/demo_recalls.h"

#include <array>
#include <string>

namespace host::demo {
namespace {

constexpr std::array<std::string_view, 5> kReminderKinds = {"Recall Reminder", "Appointment Confirmation",
                                                            "Appointment Reminder", "Birthday Reminder", "News Letter"};
constexpr std::int32_t kRecallLink = 3;
constexpr std::int32_t kAllLocations = -1;
constexpr std::int32_t kStopTracking = 2147483647;

struct Master {
  std::string_view title;
  std::string_view period;
  int months;
  std::string_view codes;
};
constexpr std::array<Master, 4> kMasters = {{{"Cleaning and examination", "6M", 6, "D0101,D1001"},
                                             {"Children's cleaning", "6M", 6, "D1002,D1003"},
                                             {"Gum maintenance", "3M", 3, "D4001"},
                                             {"Full mouth X-rays", "5Y", 60, "D0202"}}};

struct Stage {
  std::int32_t sequence;  // 0 due, 1 to 6 past due
  int number;
  std::string_view unit;
  std::string_view letter;
  std::string_view text;
};
constexpr std::array<Stage, 4> kStages = {
    {{0, 30, "D", "RECALL.DOC", "It is time for your next visit. Please call us."},
     {1, 30, "D", "LATE1.DOC", "We missed you. Please call for an appointment."},
     {2, 6, "M", "LATE2.DOC", "You are overdue for your visit with us."},
     {kStopTracking, 2, "Y", "", ""}}};

std::string Period(const Stage& stage) {
  return std::to_string(stage.number) + std::string(stage.unit);
}

}  // namespace

std::vector<RecallMaster> MakeRecallMasters(DemoOffice& office, std::int32_t location) {
  auto kinds = office.Writer("emmTable", "emmID, emmDes, emmHasCutOff, emmEna, emmAppDefTyp, OffLocID");
  auto masters = office.Writer("RSTable",
                               "RCRecNum, RCTtl, RCRecPer, RCCod, RCDuePer, RCDuePerLet, RCDuePerMsg, RCLatPer1, "
                               "RCLatPer1Let, RCLatPer1Msg, RCLatPer2, RCLatPer2Let, RCLatPer2Msg, RCCutOff, "
                               "RCDonPriDay, RCIncSamDay, RCShoOnToDo, OffLocID");
  auto stages = office.Writer("emsTable", "emsID, emsLinTyp, emsLinID, emsSeq, emsPer, emsPerTyp, emsPID");
  auto messages =
      office.Writer("ReminderMessageTable", "rmtID, rmtEMMID, rmtLinID, rmtLetFil, rmtCarMes, rmtTexMes, rmtEMaMes");

  const std::int32_t recall_kind = kinds.NextId();
  for (std::size_t i = 0; i < kReminderKinds.size(); ++i) {
    kinds.Row(kReminderKinds[i], 0, 1, static_cast<std::int32_t>(i + 1), kAllLocations);
  }
  std::vector<RecallMaster> made;
  for (const Master& master : kMasters) {
    const std::int32_t number =
        masters.Row(master.title, master.period, master.codes, Period(kStages[0]), kStages[0].letter, kStages[0].text,
                    Period(kStages[1]), kStages[1].letter, kStages[1].text, Period(kStages[2]), kStages[2].letter,
                    kStages[2].text, Period(kStages[3]), 0, 0, 1, location);
    for (const Stage& stage : kStages) {
      const std::int32_t id = stages.Row(kRecallLink, number, stage.sequence, stage.number, stage.unit, 0);
      messages.Row(recall_kind, id, stage.letter, stage.text, stage.text, stage.text);
    }
    made.push_back({number, master.months});
  }
  for (TableWriter* writer : {&kinds, &masters, &stages, &messages}) {
    writer->Flush();
  }
  return made;
}

}  // namespace host::demo
