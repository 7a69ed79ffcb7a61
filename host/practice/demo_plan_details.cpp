#include "practice/demo_plan_details.h"

#include <optional>

namespace host::demo {
namespace {

using forms::Currency;

// What a type of plan pays by, in percent of the office's fees, and how much of it.
struct Terms {
  int eligible = 0;
  int allowed = 0;
  std::optional<int> coverage = {};  // else by category
};

Terms TermsOf(std::string_view type) {
  constexpr int kAll = 100;
  if (type == "PPO") {
    return {82, 74, {}};
  }
  if (type == "MEDICAID") {
    return {45, 45, kAll};
  }
  if (type == "DISCOUNT") {
    return {70, 70, 0};
  }
  if (type == kManagedCare) {
    return {60, 60, kAll};
  }
  return {kAll, kAll, {}};
}

// How often a category's services are paid for.
struct Frequency {
  std::string_view period = {};
  std::optional<int> times = {};
};

Frequency FrequencyOf(std::string_view category) {
  if (category == "Preventive" || category == "Diagnostic") {
    return {"6M", 1};
  }
  if (category == "X-Rays") {
    return {"12M", 2};
  }
  if (category == "Crowns" || category.starts_with("Prosthodonti")) {
    return {"5Y", 1};
  }
  return {};
}

std::string_view YesNo(bool yes) {
  return yes ? "Y" : "N";
}

}  // namespace

PlanDetailMaker::PlanDetailMaker(DemoOffice& office)
    : office_(office),
      details_(office.Writer("IPTable",
                             "IPRecNum, IPInsCoID, IPGroNum, IPPlaNam, IPCod, IPCodMod, IPDes, IPCodCat, IPPFee, "
                             "IPPCov, IPPMax, IPPDedApp, IPPUCR, IPPPer, IPPPerNumTim, IPSFee, IPSCov, IPSMax, "
                             "IPSDedApp, IPSUCR, IPSPer, IPSPerNumTim, IPStaDat")) {}

void PlanDetailMaker::MakeCustomary(const Plan& plan) {
  for (std::size_t i = 0; i < kCustomaryServices; ++i) {
    Make(plan, Services()[i], {}, Services()[i].fee);
  }
}

void PlanDetailMaker::MakeOthers(const Plan& plan) {
  for (std::size_t i = kCustomaryServices; i < Services().size(); ++i) {
    Make(plan, Services()[i], {}, Services()[i].fee);
  }
  const Service& examination = Services().front();
  Make(plan, examination, "WE", examination.fee * 3 / 2);
}

void PlanDetailMaker::Make(const Plan& plan, const Service& service, std::string_view modifier, int fee) {
  constexpr int kUsualAndCustomary = 90;
  constexpr int kAgo = 700;
  const data::GlobalPlanRow& category = CategoryOf(service);
  const Terms terms = TermsOf(plan.type);
  const int coverage = terms.coverage.value_or(category.coverage);
  const std::string_view deductible = YesNo(category.deductible && !terms.coverage);
  const Frequency frequency = FrequencyOf(service.category);
  const Currency eligible = Currency::FromWhole(fee * terms.eligible / 100);
  const Currency allowed = Currency::FromWhole(fee * terms.allowed / 100);
  details_.Row(plan.carrier, plan.number, plan.name, service.code, OrNull{modifier}, service.description,
               service.category, eligible, coverage, allowed, deductible, kUsualAndCustomary, OrNull{frequency.period},
               frequency.times, eligible, coverage, allowed, deductible, kUsualAndCustomary, OrNull{frequency.period},
               frequency.times, office_.DaysAgo(kAgo));
}

void PlanDetailMaker::MakeGlobal() {
  for (const data::GlobalPlanRow& row : data::kGlobalPlanRows) {
    details_.Row(0, "GLOBAL", nullptr, row.code, nullptr, row.description, nullptr, nullptr, row.coverage, nullptr,
                 YesNo(row.deductible), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                 nullptr, nullptr);
  }
}

}  // namespace host::demo
