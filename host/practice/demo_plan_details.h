#pragma once

#include "practice/demo_office.h"
#include "practice/demo_plans.h"
#include "practice/demo_procedures.h"

namespace host::demo {

// What group plans cover of each service, and the office's global plan.
class PlanDetailMaker {
 public:
  explicit PlanDetailMaker(DemoOffice& office);

  // Of the customary services alone.
  void MakeCustomary(const Plan& plan);
  // Of all others, and of a customary one at the weekend.
  void MakeOthers(const Plan& plan);
  void MakeGlobal();
  void Flush() { details_.Flush(); }

 private:
  void Make(const Plan& plan, const Service& service, std::string_view modifier, int fee);

  DemoOffice& office_;
  TableWriter details_;
};

}  // namespace host::demo
