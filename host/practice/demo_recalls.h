#pragma once

#include <cstdint>
#include <vector>

#include "practice/demo_office.h"
#include "practice/demo_reminders.h"

namespace host::demo {

struct RecallMaster {
  std::int32_t number = 0;
  int months = 0;                    // the recall period
  std::vector<std::int32_t> stages;  // as `emsSeq` numbers them
};

// Recall masters, each with a ladder of stages and a text for each way to send it. The first master is the usual one.
std::vector<RecallMaster> MakeRecallMasters(DemoOffice& office, std::int32_t location, const ReminderKinds& kinds);

}  // namespace host::demo
