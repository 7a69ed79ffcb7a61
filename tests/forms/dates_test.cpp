#include "forms/dates.h"

namespace forms {
namespace {

using namespace std::chrono_literals;

constexpr Date kToday = 2026y / 11 / 21;

std::string Typed(std::string_view text) {
  const auto date = ParseDate(text, kToday);
  return date ? FormatIso(*date) : "none";
}

TEST(Dates, AreTypedWithAndWithoutSeparators) {
  EXPECT_EQ(Typed("1/2/1980"), "1980-01-02");
  EXPECT_EQ(Typed("01-02-80"), "1980-01-02");
  EXPECT_EQ(Typed("010280"), "1980-01-02");
  EXPECT_EQ(Typed(" 01021980 "), "1980-01-02");
  EXPECT_EQ(Typed("2/29/2024"), "2024-02-29");
  EXPECT_EQ(Typed("1980-01-02"), "1980-01-02");
  EXPECT_EQ(Typed("1980/1/2"), "1980-01-02");
  EXPECT_EQ(Typed("19800102"), "1980-01-02");
  EXPECT_EQ(Typed("12112011"), "2011-12-11") << "what begins with a month does so";
}

TEST(Dates, TwoDigitYearsLieInTheHundredYearsUpToToday) {
  EXPECT_EQ(Typed("010126"), "2026-01-01");
  EXPECT_EQ(Typed("010127"), "1927-01-01");
  EXPECT_EQ(Typed("010100"), "2000-01-01");
}

TEST(Dates, BirthsLieInThePast) {
  EXPECT_EQ(ParseBirthDate("12/31/26", kToday), Date(1926y / 12 / 31));
  EXPECT_EQ(ParseBirthDate("11/21/26", kToday), kToday);
  EXPECT_EQ(ParseBirthDate("12/31/2026", kToday), Date(2026y / 12 / 31)) << "what was typed in full stays";
  EXPECT_FALSE(ParseBirthDate("2/30/26", kToday));
}

TEST(Dates, WhatIsNoDayIsRefused) {
  for (const auto* text :
       {"",         "/",       "//",      "1/2",      "1/2/",       "/2/80",    "13/1/1980", "2/29/2023",
        "0/1/1980", "1/32/80", "1/2/980", "001/2/80", "1/2/19800",  "10280",    "0102198",   "1/2/80/3",
        "+1/2/80",  "a/b/cd",  "1//80",   "1/ 2/80",  "01-02-0099", "19801302", "1980-1",    "1980-1-002"}) {
    EXPECT_EQ(Typed(text), "none") << text;
  }
}

TEST(Dates, AreShownInTheFormatsOfTheScreens) {
  const Date date = 1980y / 1 / 2;
  EXPECT_EQ(FormatShortDate(date), "1/2/1980");
  EXPECT_EQ(FormatDashed(date), "01-02-1980");
  EXPECT_EQ(FormatSlashed(date), "01/02/1980");
  const DateTime afternoon = AtMidnight(date) + 14h + 5min + 9s;
  EXPECT_EQ(FormatStamp(afternoon), "01/02/1980 14:05:09");
  EXPECT_EQ(FormatTime(afternoon), "02:05 pm");
  EXPECT_EQ(FormatTime(AtMidnight(date)), "12:00 am");
  EXPECT_EQ(FormatTime(AtMidnight(date) + 12h), "12:00 pm");
}

TEST(Dates, IsoComesBackAsItWasWritten) {
  const DateTime time = AtMidnight(1899y / 12 / 30) + 23h + 59min + 59s;
  EXPECT_EQ(FormatIso(time), "1899-12-30 23:59:59");
  EXPECT_EQ(ParseIso(FormatIso(time)), time);
  EXPECT_EQ(ParseIso("1899-12-30"), AtMidnight(DateOf(time)));
  for (const auto* text : {"", "1980-1-2", "1980-02-30", "1980-01-02T14:05:00", "1980-01-02 24:00:00",
                           "1980-01-02 14:60:00", "1980-01-02 14:05:-1", "1980/01/02", "1980-01-02 14:05:000"}) {
    EXPECT_EQ(ParseIso(text), std::nullopt) << text;
  }
}

TEST(Dates, AgeCountsWholeYearsAndMonths) {
  EXPECT_EQ(AgeAt(1985y / 8 / 21, kToday), (Age{41, 3}));
  EXPECT_EQ(AgeAt(1985y / 8 / 22, kToday), (Age{41, 2}));
  EXPECT_EQ(AgeAt(2025y / 11 / 22, kToday), (Age{0, 11}));
  EXPECT_EQ(AgeAt(2024y / 2 / 29, 2025y / 2 / 28), (Age{0, 11}));
  EXPECT_EQ(AgeAt(kToday, kToday), (Age{0, 0}));
  EXPECT_EQ(AgeAt(2026y / 11 / 22, kToday), std::nullopt);
  EXPECT_EQ(FormatAge({41, 3}), "41 years 3 months");
  EXPECT_EQ(FormatAge({1, 1}), "1 year 1 month");
  EXPECT_EQ(FormatAge({2, 0}), "2 years");
  EXPECT_EQ(FormatAge({0, 0}), "0 months");
}

}  // namespace
}  // namespace forms
