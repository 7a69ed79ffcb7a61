#include "forms/card_number.h"

#include <gtest/gtest.h>

namespace {

using forms::IsCardNumber;
using forms::MaskedCardNumber;
using forms::WithoutCardNumbers;

TEST(CardNumber, ShowsItsLastFourDigitsAlone) {
  EXPECT_EQ(MaskedCardNumber("4111 1111-1111 1234"), "************1234");
  EXPECT_EQ(MaskedCardNumber("12345"), "*2345");
  EXPECT_EQ(MaskedCardNumber("1234"), "****") << "so short a number would be shown whole";
  EXPECT_EQ(MaskedCardNumber(""), "");
}

TEST(CardNumber, IsKnownByItsLastDigit) {
  for (const char* number : {"4111111111111111", "5500-0000-0000-0004", "3782 822463 10005", "6011000990139424"}) {
    EXPECT_TRUE(IsCardNumber(number)) << number;
  }
  for (const char* number : {"4111111111111112", "1411111111111111", "", "0000", "4111x1111111111", "-"}) {
    EXPECT_FALSE(IsCardNumber(number)) << number;
  }
  EXPECT_FALSE(IsCardNumber(std::string(20, '0')));
}

TEST(CardNumber, IsMaskedWhereverItStandsInAText) {
  EXPECT_EQ(WithoutCardNumbers("SET a='4111111111111111', b=78701, c='979-00-1151' 5500000000000004"),
            "SET a='************1111', b=78701, c='979-00-1151' ************0004");
  EXPECT_EQ(WithoutCardNumbers("78701 - '4111 1111  1111-1111 ' 1-2"), "78701 - '************1111 ' 1-2");
  EXPECT_EQ(WithoutCardNumbers("02139 5500000000000004 7"), "******************0047") << "more digits hide none";
  EXPECT_EQ(WithoutCardNumbers(""), "");
}

}  // namespace
