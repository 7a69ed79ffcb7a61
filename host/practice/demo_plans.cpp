#include "practice/demo_plans.h"

#include <algorithm>
#include <array>

namespace host::demo {
namespace {

using forms::Currency;

constexpr std::array<std::string_view, 4> kUnmanaged = {"INDEMNITY", "PPO", "MEDICAID", "DISCOUNT"};

constexpr std::array<std::string_view, 4> kForms = {"ADA 2024", "ADA 2019", "ADA 2012", "CMS-1500"};
constexpr std::array<std::string_view, 4> kRemarks = {"Waiting time of 12 months for crowns.",
                                                      "Call before treatment above $500.", "Missing tooth clause.",
                                                      "Sealed grooves until 14 alone."};

Currency Dollars(int amount) {
  return Currency::FromWhole(amount);
}

// A remark, of some plans.
std::string_view Remark(Random& chance) {
  return chance.Percent(40) ? chance.OneOf(std::span<const std::string_view>(kRemarks)) : std::string_view();
}

}  // namespace

PlanMaker::PlanMaker(DemoOffice& office)
    : chance_(office.Apart("plans")),
      plans_(office.Writer("GroPlaTable",
                           "GroPlaInd, GroPlaInsID, GroPlaGroNum, GroPlaNam, GroPlaCat, GroPlaEffDat, GroPlaMax1, "
                           "GroPlaMax2, GroPlaMax3, GroPlaMax4, GroPlaDed1, GroPlaDed2, GroPlaForTyp, GroPlaPayTyp, "
                           "GroPlaPreAutReq, GroPlaChiCovTil, GroPlaStuCovTil, GroPlaRem1, GroPlaRem2, GroPlaDedPct, "
                           "GroPlaAppDedLas, GroPlaUseOffFee, GroPlaSubOffFee, GroPlaCOB")) {}

// One of each at first.
std::string_view PlanMaker::NextType(bool managed) {
  if (managed) {
    return kManagedCare;
  }
  const auto next = static_cast<std::size_t>(unmanaged_++);
  const int share = chance_.Below(100);
  return kUnmanaged.at(next < kUnmanaged.size() ? next : share < 45 ? 0 : share < 85 ? 1 : share < 93 ? 2 : 3);
}

Plan PlanMaker::Make(const Agreed& agreed) {
  const std::string_view type = NextType(agreed.managed);
  const std::string_view form =
      type == "MEDICAID" ? kForms.back() : kForms.at(static_cast<std::size_t>(chance_.Below(3)));
  const int payment = chance_.Percent(85) ? 1 : chance_.Between(2, 3);
  const int orthodontics = chance_.Percent(50) ? 500 * chance_.Between(2, 4) : 0;
  const int pre_authorised = chance_.Percent(25) ? 1 : 0;
  const int children = chance_.Percent(80) ? 19 : 26;
  const int students = std::max(children, chance_.Between(23, 26));
  const std::string_view first_remark = Remark(chance_);
  const std::string_view second_remark = first_remark.empty() ? std::string_view() : Remark(chance_);
  const int percent = chance_.Percent(20) ? 1 : 0;
  const int last = chance_.Percent(15) ? 1 : 0;
  const int office_fees = type == "INDEMNITY" ? 1 : 0;
  const int submits_office_fees = chance_.Percent(70) ? 1 : 0;
  const int coordination = chance_.Below(3);
  const std::int32_t id = plans_.Row(
      agreed.carrier, agreed.number, agreed.name, type, agreed.renewal, Dollars(agreed.maximum),
      Dollars(2 * agreed.maximum), Dollars(orthodontics), Dollars(5 * agreed.maximum), Dollars(agreed.deductible),
      Dollars(3 * agreed.deductible), form, std::to_string(payment), pre_authorised, children, students,
      OrNull{first_remark}, OrNull{second_remark}, percent, last, office_fees, submits_office_fees, coordination);
  return {id, agreed.carrier, agreed.number, agreed.name, type, agreed.maximum, agreed.deductible};
}

}  // namespace host::demo
