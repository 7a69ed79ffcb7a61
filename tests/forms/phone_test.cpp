#include "forms/phone.h"

namespace forms {
namespace {

TEST(Phone, TenDigitsAreShownInOneWay) {
  for (const auto* typed : {"5551234567", "555-123-4567", "555.123.4567", "(555)1234567", " (555) 123-4567 "}) {
    EXPECT_EQ(FormatPhone(typed), "(555) 123-4567") << typed;
  }
}

TEST(Phone, ExtensionsStay) {
  EXPECT_EQ(FormatPhone("5551234567x12"), "(555) 123-4567 x12");
  EXPECT_EQ(FormatPhone("555-123-4567 Ext. 12"), "(555) 123-4567 Ext. 12");
  EXPECT_EQ(FormatPhone("555-123-4567 #12"), "(555) 123-4567 #12");
}

TEST(Phone, AnythingElseIsLeftAsTyped) {
  for (const auto* typed : {"", "1234567", "15551234567", "+44 20 7946 0958", "a@b.com", "5551234567 after 5",
                            "555-123-4567 x", "call 555-123-4567", "5551234567 x12a"}) {
    EXPECT_EQ(FormatPhone(typed), typed);
  }
}

}  // namespace
}  // namespace forms
