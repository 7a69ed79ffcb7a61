#pragma once

#include <cstdint>
#include <string>

#include "forms/currency.h"

namespace session {

// A fee that there is none of: any negative amount is one.
inline constexpr forms::Currency kNoFee = forms::Currency::FromWhole(-1);

// What a plan adjustment is worked out from, and its outcome.
struct PlanAdjustment {
  std::int32_t employer_id = 0;
  std::int32_t carrier_id = 0;
  std::int32_t group_id = 0;  // of the group plan
  std::string treatment_code;
  forms::Currency office_fee;  // 0 for the one of the treatment code
  forms::Currency allowed_fee = kNoFee;
  forms::Currency plan_calculation_fee = kNoFee;
  double coverage_percent = 0;
  forms::Currency plan_payment;
  forms::Currency provider_adjustment;
  forms::Currency patient_portion;
  bool allow_edit_payment = false;
};

// Visits the values as the arguments of `Edit_AdjustPlan_Info`, in their order, of one plan or side by side of
// several: visit(const char* name, auto&... values).
template <typename Visit, typename... Plans>
void VisitArguments(const Visit& visit, Plans&... plans) {
  visit("EmployerID", plans.employer_id...);
  visit("CarrierID", plans.carrier_id...);
  visit("GroupID", plans.group_id...);
  visit("TreatmentCode", plans.treatment_code...);
  visit("OfficeFee", plans.office_fee...);
  visit("AllowedFee", plans.allowed_fee...);
  visit("PlanCalculationFee", plans.plan_calculation_fee...);
  visit("CoveragePercent", plans.coverage_percent...);
  visit("PlanPayment", plans.plan_payment...);
  visit("ProviderAdjustment", plans.provider_adjustment...);
  visit("PatientPortion", plans.patient_portion...);
  visit("AllowEditPayment", plans.allow_edit_payment...);
}

}  // namespace session
