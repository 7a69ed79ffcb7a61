#pragma once

#include <cstdint>
#include <vector>

#include "practice/demo_office.h"

namespace host::demo {

struct RecallMaster {
  std::int32_t number = 0;
  int months = 0;  // the recall period
};

// Reminder kinds, and recall masters with their stages and texts. The first master is the usual one.
std::vector<RecallMaster> MakeRecallMasters(DemoOffice& office, std::int32_t location);

}  // namespace host::demo
