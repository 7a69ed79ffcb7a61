#include "insurance/default_group_number.h"

#include <gtest/gtest.h>

namespace insurance {
namespace {

TEST(DefaultGroupNumber, IsMadeOfTheFirstNameThatIsThere) {
  struct Case {
    const char* carrier;
    const char* plan;
    const char* number;
  };
  for (const Case& each : {
           Case{"Acme Dental", "Gold", "$$ACMEDENT"},
           {"  \t Acme Dental  ", "", "$$ACMEDENT"},  // blanks at the ends take no place
           {" \r\n ", "Good Plan", "$$GDPLAN"},
           {"", " ", "$$Default"},
           {"A B", "Gold", "$$AB"},
           {"Delta Dent al", "", "$$DELTADEN"},  // ten characters, with their blanks, before anything goes
           {"Élan Zürich", "", "$$ÉLANZÜRI"},    // characters, not bytes
           {"AaeEiIoOuU", "", "$$"},             // in either case
           {"Aaa", "", "$$A"},
           {"Sa a", "", "$$S"},     // a pair that the blanks parted
           {"Boiiok", "", "$$BK"},  // brought together, and still to come
           {"Boeeok", "", "$$BK"},
           {"Beiie", "", "$$BEE"},  // brought together, and passed already
           {"Bauuab", "", "$$BAAB"},
           {"'; DROP TABLE", "", "$$';DROPTA"},
       }) {
    EXPECT_EQ(DefaultGroupNumber(each.carrier, each.plan), each.number) << each.carrier << "|" << each.plan;
  }
  EXPECT_EQ(DefaultGroupNumber(std::string(10'000, 'x'), {}), "$$XXXXXXXX");
}

}  // namespace
}  // namespace insurance
