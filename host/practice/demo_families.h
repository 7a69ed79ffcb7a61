#pragma once

#include <cstdint>
#include <vector>

#include "practice/demo_insurance.h"
#include "practice/demo_office.h"
#include "practice/demo_recalls.h"
#include "practice/demo_staff.h"

namespace host::demo {

// What patients of an office are given.
struct OfficeRecords {
  Staff staff;
  Insurance insurance;
  ReminderKinds reminder_kinds = {};
  std::vector<RecallMaster> recalls;
  std::vector<std::int32_t> operatories;
};

// Families of one to five until the office has its patients, with holdings, coverages, recalls, appointments,
// reminders, transactions and accounts.
void MakeFamilies(DemoOffice& office, const OfficeRecords& records, std::int32_t patients);

}  // namespace host::demo
