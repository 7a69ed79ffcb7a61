#include "forms/currency.h"

#include <limits>
#include <stdexcept>

namespace forms {
namespace {

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();

std::string Plain(std::string_view text) {
  const auto amount = Currency::Parse(text);
  return amount ? ToPlainText(*amount) : "none";
}

TEST(Currency, ReadsWhatAPersonTypes) {
  EXPECT_EQ(Plain("1234.5"), "1234.5");
  EXPECT_EQ(Plain(" $1,234.50 "), "1234.5");
  EXPECT_EQ(Plain("$ 50"), "50");
  EXPECT_EQ(Plain("( $ 50 )"), "-50");
  EXPECT_EQ(Plain("$ 5 0"), "none");
  EXPECT_EQ(Plain("-$.5"), "-0.5");
  EXPECT_EQ(Plain("$-5."), "-5");
  EXPECT_EQ(Plain("+7"), "7");
  EXPECT_EQ(Plain("($1,234.50)"), "-1234.5");
  for (const auto* no_amount :
       {"", "$", ".", "-", "(1", "1)", "(-1)", "--1", "1.2.3", "1e3", "12 34", "1.2,3", ",5", "\u0661", "abc"}) {
    EXPECT_EQ(Plain(no_amount), "none") << no_amount;
  }
}

TEST(Currency, RoundsFurtherDecimalsHalfToEven) {
  EXPECT_EQ(Plain("0.00005"), "0");
  EXPECT_EQ(Plain("0.00015"), "0.0002");
  EXPECT_EQ(Plain("0.000050001"), "0.0001");
  EXPECT_EQ(Plain("-9.99995"), "-10");
  EXPECT_EQ(Plain("0.00005x"), "none");
}

TEST(Currency, RefusesWhatDoesNotFit) {
  EXPECT_EQ(Plain("922337203685477.5807"), "922337203685477.5807");
  EXPECT_EQ(Plain("-922337203685477.5808"), "-922337203685477.5808");
  EXPECT_EQ(Plain("922337203685477.5808"), "none");
  EXPECT_EQ(Plain("922337203685477.58075"), "none");
  EXPECT_EQ(Plain("-922337203685477.5809"), "none");
  EXPECT_EQ(Plain("99999999999999999999999"), "none");
  const auto most = Currency::FromTenThousandths(kMost);
  EXPECT_THROW(most + Currency::FromTenThousandths(1), std::overflow_error);
  EXPECT_THROW(-most - Currency::FromTenThousandths(2), std::overflow_error);
  EXPECT_THROW(-Currency::FromTenThousandths(-kMost - 1), std::overflow_error);
}

TEST(Currency, RoundsToCentsAwayFromZero) {
  EXPECT_EQ(Currency::Parse("0.0050")->RoundedToCents(), *Currency::Parse("0.01"));
  EXPECT_EQ(Currency::Parse("0.0049")->RoundedToCents(), Currency());
  EXPECT_EQ(Currency::Parse("-1.0150")->RoundedToCents(), *Currency::Parse("-1.02"));
}

TEST(Currency, ShowsTheCurrencyFormat) {
  EXPECT_EQ(FormatCurrency(Currency()), "$0.00");
  EXPECT_EQ(FormatCurrency(*Currency::Parse("999.995")), "$1,000.00");
  EXPECT_EQ(FormatCurrency(*Currency::Parse("-1234567.8")), "($1,234,567.80)");
  EXPECT_EQ(FormatCurrency(*Currency::Parse("-0.004")), "$0.00");
  EXPECT_EQ(FormatCurrency(Currency::FromTenThousandths(-kMost - 1)), "($922,337,203,685,477.58)");
}

TEST(Percent, ShowsOneToFourDecimals) {
  EXPECT_EQ(FormatPercent(0.8), "80.0%");
  EXPECT_EQ(FormatPercent(1), "100.0%");
  EXPECT_EQ(FormatPercent(0.123456), "12.3456%");
  EXPECT_EQ(FormatPercent(0.12345678), "12.3457%");
  EXPECT_EQ(FormatPercent(0.333), "33.3%");
  EXPECT_EQ(FormatPercent(-0.00000001), "0.0%");
}

}  // namespace
}  // namespace forms
