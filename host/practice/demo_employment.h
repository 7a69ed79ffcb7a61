#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "practice/demo_office.h"

namespace host::demo {

struct Post {
  std::string_view department;
  std::string_view professional_title = {};
  std::string_view taxonomy = {};
  int salary = 0;
};

// What the practice keeps of a working life: payroll statuses with a schedule for each location, clock times, absences.
class EmploymentMaker {
 public:
  EmploymentMaker(DemoOffice& office, const std::vector<std::int32_t>& locations)
      : office_(office), locations_(locations) {}

  // Two to four statuses from a day on, each for more money than the one before.
  void MakeHistory(std::int32_t person, const Post& post, forms::Date since);
  // The last two weeks by the clock, and a day off to come.
  void MakeClockTimes(std::int32_t person);
  void Flush();

 private:
  void MakeSchedules(std::int32_t status, int which);

  DemoOffice& office_;
  const std::vector<std::int32_t>& locations_;
  TableWriter pay_ = office_.Writer("EBTable",
                                    "EBID, EBPid, EBAPPDAT, EBFulTimFla, EBDep, EBAnnSalAmt, EBAnnVacHou, EBAnnSicHou, "
                                    "EBAnnPerHou, EBRenDat, EBWorStaTim, EBWorEndTim, EBWorDay, EBReaCha, EBWhoCre, "
                                    "EBDatCre");
  TableWriter schedules_ = office_.Writer("ESTable", "ESID, EBID, OffLocID, ESWorStaTim, ESWorEndTim, ESWorDay");
  TableWriter clock_ = office_.Writer("TimTable", "TimID, TimPid, TimInDat, TimOutDat, TimTyp");
  TableWriter absences_ = office_.Writer("AbsTable", "AbsID, AbsTimID");
};

}  // namespace host::demo
