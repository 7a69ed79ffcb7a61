#include "forms/period_code.h"

#include <limits>
#include <stdexcept>

namespace forms {
namespace {

std::string Read(std::string_view text) {
  const auto code = PeriodCode::Parse(text);
  return code ? code->Text() : "none";
}

TEST(PeriodCode, ReadsANumberAndAUnitLetter) {
  EXPECT_EQ(Read("30D"), "30D");
  EXPECT_EQ(Read(" 6m "), "6M");
  EXPECT_EQ(Read("2 Y"), "2Y");
  EXPECT_EQ(Read("9999Y"), "9999Y");
  for (const auto* text : {"", "   ", "6", "6W", "M6", "10000D", "6\u0424"}) {
    EXPECT_EQ(Read(text), "none") << text;
  }
}

TEST(PeriodCode, RoundsTheNumberHalfToEvenAsFarAsItIsOne) {
  EXPECT_EQ(Read("1.5M"), "2M");
  EXPECT_EQ(Read("2.5M"), "2M");
  EXPECT_EQ(Read("6xM"), "6M");
  EXPECT_EQ(Read("D"), "0D");
  EXPECT_EQ(Read("-1D"), "-1D");
  EXPECT_EQ(Read("+6D"), "6D");
  EXPECT_EQ(Read("infD"), "0D");
}

TEST(PeriodCode, ComparesInDays) {
  EXPECT_EQ(PeriodCode::Parse("30D")->Days(), 30);
  EXPECT_EQ(PeriodCode::Parse("12M")->Days(), 360);
  EXPECT_EQ(PeriodCode::Parse("1Y")->Days(), 365);
  EXPECT_THROW((PeriodCode{std::numeric_limits<std::int32_t>::max() / 30 + 1, PeriodUnit::Months}.Days()),
               std::overflow_error);
}

TEST(PeriodCode, SpeaksInWords) {
  EXPECT_EQ(PeriodCode::Parse("30D")->Words(), "30 days");
  EXPECT_EQ(PeriodCode::Parse("1Y")->Words(), "1 year");
  EXPECT_EQ(PeriodCode::Parse("0M")->Words(), "");
  EXPECT_EQ(PeriodCode::Parse("-1M")->Words(), "");
}

}  // namespace
}  // namespace forms
