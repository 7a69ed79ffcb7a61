#include "insurance/ppo_adjustment.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace insurance {
namespace {

using forms::Currency;

constexpr int kRounds = 1'000'000;
constexpr std::int64_t kMostCents = 99'999'999;
const Currency kNone = Currency::FromWhole(-1);

Currency Cents(std::int64_t cents) {
  return Currency::FromTenThousandths(cents * 100);
}

// "payment adjustment portion"
std::string Split(const PpoFees& fees) {
  const PpoSplit split = SplitFee(fees);
  return ToPlainText(split.plan_payment) + " " + ToPlainText(split.provider_adjustment) + " " +
         ToPlainText(split.patient_portion);
}

PpoFees Whole(int office, int allowed, int calculation, double percent) {
  return {Currency::FromWhole(office), Currency::FromWhole(allowed), Currency::FromWhole(calculation), percent};
}

// Fees in cents, of which some are none, nothing, equal or too large; a percentage with up to four decimals.
PpoFees AnyFees(std::mt19937_64& random) {
  const auto cents = [&] {
    const std::int64_t most = random() % 2 == 0 ? kMostCents : 20'000;
    return Cents(static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(most)));
  };
  const auto fee = [&](Currency same) {
    switch (random() % 6) {
      case 0:
        return kNone;
      case 1:
        return Currency();
      case 2:
        return same;
      default:
        return cents();
    }
  };
  const double step = random() % 2 == 0 ? 0.5 : 0.0001;
  PpoFees fees;
  fees.office = cents();
  fees.allowed = fee(fees.office);
  fees.calculation = fee(fees.allowed);
  fees.percent = static_cast<double>(random() % static_cast<std::uint64_t>(100 / step + 1)) * step;
  if (random() % 4 == 0) {
    fees.typed_payment = cents();
  }
  return fees;
}

TEST(PpoAdjustment, CapsRaisesAndFillsInFees) {
  EXPECT_EQ(Split(Whole(100, 80, 80, 80)), "64 20 16");
  EXPECT_EQ(Split(Whole(100, -1, -1, 80)), "80 0 20");
  EXPECT_EQ(Split(Whole(100, 0, 0, 80)), "0 100 0");
  EXPECT_EQ(Split(Whole(100, 80, 0, 80)), "0 20 80");
  EXPECT_EQ(Split(Whole(100, 120, -1, 80)), "80 0 20");
  EXPECT_EQ(Split(Whole(100, 80, 90, 80)), "72 10 18");
  EXPECT_EQ(Split(Whole(100, 80, 110, 80)), "88 -10 22") << "raised past the office's fee";
  EXPECT_EQ(Split(Whole(100, 80, 80, 150)), "80 20 0");
  EXPECT_EQ(Split(Whole(100, 80, 80, -5)), "0 20 80");
  PpoFees typed = Whole(100, 80, 80, 80);
  typed.typed_payment = Currency::FromWhole(50);
  EXPECT_EQ(Split(typed), "50 34 16");
}

TEST(PpoAdjustment, RoundsHalfACentAwayFromZero) {
  EXPECT_EQ(Split({Cents(1), kNone, kNone, 50}), "0.01 0 0");
  EXPECT_EQ(Split({Cents(25), kNone, kNone, 50}), "0.13 0 0.12");
  EXPECT_EQ(Split({Cents(10'000), kNone, kNone, 33.3333}), "33.33 0 66.67");
  // By way of four decimals, 0.09495 and 0.06495, which numbers with a binary point miss by their last digit.
  EXPECT_EQ(Split({Cents(1'899), kNone, kNone, 0.5}), "0.1 0 18.89");
  EXPECT_EQ(Split({Cents(433), kNone, kNone, 1.5}), "0.07 0 4.26");
}

TEST(PpoAdjustment, LosesNoCent) {
  std::mt19937_64 random(57);
  for (int round = 0; round < kRounds; ++round) {
    PpoFees fees = AnyFees(random);
    const PpoSplit split = SplitFee(fees);
    ASSERT_EQ(split.plan_payment + split.provider_adjustment + split.patient_portion, fees.office);
    ASSERT_EQ(split.patient_portion.RoundedToCents(), split.patient_portion);

    // As near to the share as cents come, by way of four decimals.
    const Currency calculation = fees.calculation >= Currency() ? fees.calculation
                                 : fees.allowed >= Currency()   ? std::min(fees.allowed, fees.office)
                                                                : fees.office;
    const double payment = static_cast<double>(calculation.TenThousandths()) * (fees.percent * 0.01);
    const auto typed = std::exchange(fees.typed_payment, {});
    const PpoSplit of_plan = SplitFee(fees);
    ASSERT_NEAR(static_cast<double>(of_plan.plan_payment.TenThousandths()), payment, 50.51);
    ASSERT_EQ(of_plan.patient_portion, split.patient_portion);
    ASSERT_EQ(split.plan_payment, typed.value_or(of_plan.plan_payment));

    // The plan pays no less for a larger share, and the patient no more.
    fees.percent = std::min(fees.percent + 0.0001 * static_cast<double>(random() % 100'000), 100.0);
    const PpoSplit more = SplitFee(fees);
    ASSERT_GE(more.plan_payment, of_plan.plan_payment);
    ASSERT_LE(more.patient_portion, of_plan.patient_portion);
    ASSERT_EQ(more.provider_adjustment, of_plan.provider_adjustment);
  }
}

// Either the amounts add up, or the largest that there is has been passed.
TEST(PpoAdjustment, NeverWrapsAround) {
  std::mt19937_64 random(58);
  int refused = 0;
  for (int round = 0; round < kRounds / 10; ++round) {
    const auto any = [&] { return Currency::FromTenThousandths(static_cast<std::int64_t>(random())); };
    const PpoFees fees{any(), any(), any(), static_cast<double>(random() % 101), any()};
    try {
      const PpoSplit split = SplitFee(fees);
      ASSERT_EQ(split.plan_payment + split.patient_portion + split.provider_adjustment, fees.office);
    } catch (const std::overflow_error&) {
      ++refused;
    }
  }
  EXPECT_GT(refused, 0);
  EXPECT_LT(refused, kRounds / 10);
  const Currency most = Currency::FromTenThousandths(std::numeric_limits<std::int64_t>::max());
  EXPECT_THROW(SplitFee({-most, most, most, 0}), std::overflow_error);
  EXPECT_EQ(Split({Currency::FromWhole(900'000'000'000'000), kNone, kNone, 62.5}), "562500000000000 0 337500000000000");
}

}  // namespace
}  // namespace insurance
