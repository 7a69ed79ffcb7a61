#include "insurance/amounts.h"

#include <gmock/gmock.h>

#include "support/fake_host.h"

namespace insurance {
namespace {

using forms::Currency;
using test_support::FakeUser;

TEST(Amounts, AreReadAsTheyArePastedOrRefusedInWordsOfTheField) {
  FakeUser user;
  EXPECT_EQ(ReadAmount(user, "Office Fee", "1,234.50"), Currency::FromTenThousandths(12'345'000));
  EXPECT_EQ(ReadAmount(user, "Office Fee", " $1234.5 "), Currency::FromTenThousandths(12'345'000));
  EXPECT_EQ(ReadAmount(user, "Office Fee", "999999.99"), kMostAmount);
  EXPECT_THAT(user.told, testing::IsEmpty());

  EXPECT_FALSE(ReadAmount(user, "Office Fee", "(12)"));
  EXPECT_FALSE(ReadAmount(user, "Office Fee", "1000000"));
  EXPECT_FALSE(ReadAmount(user, "Office Fee", "12%"));
  EXPECT_THAT(user.told,
              testing::ElementsAre("Office Fee field cannot be less than $0.00.",
                                   "Office Fee field cannot be greater than $999,999.99.",
                                   "The value entered into the Office Fee field could not be converted to currency. "
                                   "Please enter a numeric value or use the Windows currency format: [ 1234.5 = "
                                   "$1,234.50 ]."));
}

TEST(Percentages, StayBetweenNoneAndAll) {
  FakeUser user;
  for (const auto& [text, percent] : {std::pair("80%", 80.0),
                                      {" %80 ", 80.0},
                                      {"33.3333", 33.3333},
                                      {"", 0.0},
                                      {"-5", 0.0},
                                      {"150", 100.0},
                                      {"+50", 50.0}}) {
    EXPECT_EQ(ReadPercent(user, "Coverage", text), percent) << text;
  }
  const std::string digits(4000, '9');
  EXPECT_EQ(ReadPercent(user, "Coverage", digits), 100.0);
  EXPECT_EQ(ReadPercent(user, "Coverage", "-" + digits + ".5"), 0.0);
  EXPECT_EQ(ReadPercent(user, "Coverage", "0." + std::string(4000, '0') + "1"), 0.0);
  EXPECT_THAT(user.told, testing::IsEmpty());
  for (const char* text : {"eighty", "nan", "-inf", "1,5", "$5", "+-5", "+", "."}) {
    EXPECT_FALSE(ReadPercent(user, "Coverage", text)) << text;
  }
  EXPECT_EQ(user.told.back(),
            "The value entered into the Coverage field could not be converted to a percentage. Please enter a numeric "
            "value or use the Windows percentage format: [ 100 = 100.0% ].");
}

}  // namespace
}  // namespace insurance
