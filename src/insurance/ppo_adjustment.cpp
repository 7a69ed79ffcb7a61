#include "insurance/ppo_adjustment.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace insurance {
namespace {

using forms::Currency;

constexpr std::int64_t kPercent = 10'000;  // a percentage has four decimals
constexpr std::int64_t kWhole = 100 * kPercent;

// Half goes away from zero.
std::int64_t DividedByWhole(std::int64_t number) {
  const std::int64_t half = number < 0 ? -kWhole / 2 : kWhole / 2;
  return (number + half) / kWhole;
}

// The product is exact: neither factor has more than four decimals.
Currency ShareOf(Currency amount, double percent) {
  const std::int64_t share = std::llround(std::fmin(std::fmax(percent, 0), 100) * static_cast<double>(kPercent));
  const std::int64_t units = amount.TenThousandths();
  return Currency::FromTenThousandths(units / kWhole * share + DividedByWhole(units % kWhole * share));
}

}  // namespace

PpoSplit SplitFee(const PpoFees& fees) {
  Currency allowed = fees.allowed < Currency() ? fees.office : std::min(fees.allowed, fees.office);
  const Currency calculation = fees.calculation < Currency() ? allowed : fees.calculation;
  allowed = std::max(allowed, calculation);

  const Currency payment = ShareOf(calculation, fees.percent).RoundedToCents();
  PpoSplit split;
  split.patient_portion = (allowed - payment).RoundedToCents();
  split.plan_payment = fees.typed_payment.value_or(payment);
  split.provider_adjustment = fees.office - (split.plan_payment + split.patient_portion);
  return split;
}

}  // namespace insurance
