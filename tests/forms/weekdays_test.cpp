#include "forms/weekdays.h"

#include <gtest/gtest.h>

namespace forms {
namespace {

TEST(Weekdays, EveryChoiceIsWrittenShortAndReadBack) {
  EXPECT_EQ(FormatWeekdays(0b0011111), "Mon-Fri");
  EXPECT_EQ(FormatWeekdays(0b1100101), "Mon,Wed,Sat,Sun");
  for (unsigned long days = 0; days < 128; ++days) {
    const std::string text = FormatWeekdays(days);
    EXPECT_EQ(ParseWeekdays(text), Weekdays(days)) << text;
    EXPECT_LE(text.size(), 20U) << text;
  }
}

TEST(Weekdays, OtherTextsAreNoDays) {
  EXPECT_EQ(ParseWeekdays(" mon - wed , SUN "), Weekdays(0b1000111));
  for (const char* text : {"M", "Fri-Mon", "Mon,,Tue", "Mon-", "-", "Monday"}) {
    EXPECT_FALSE(ParseWeekdays(text)) << text;
  }
}

}  // namespace
}  // namespace forms
