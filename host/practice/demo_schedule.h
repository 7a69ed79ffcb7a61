#pragma once

#include <cstdint>
#include <vector>

#include "practice/demo_staff.h"

namespace host::demo {

// Two operatories at each location, a provider preferred in each; each provider's hours, a template that has started
// and one that is to start. Returns the operatories.
std::vector<std::int32_t> MakeSchedule(DemoOffice& office, const Staff& staff);

// The appointments to come of every third patient.
class AppointmentMaker {
 public:
  AppointmentMaker(DemoOffice& office, const std::vector<std::int32_t>& operatories)
      : office_(office), operatories_(operatories) {}

  void Make(std::int32_t patient, std::int32_t provider);
  void Flush() { appointments_.Flush(); }

 private:
  DemoOffice& office_;
  const std::vector<std::int32_t>& operatories_;
  TableWriter appointments_ = office_.Writer("ApTable", "APID, APPid, APDrID, APOpID, APDat, APLen, APRea");
};

}  // namespace host::demo
