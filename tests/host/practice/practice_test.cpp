#include "practice/practice.h"

#include <gtest/gtest.h>

#include "host/practice/practice_fixture.h"

namespace host {
namespace {

TEST(Practice, MakingThatIsBrokenOffLeavesNothing) {
  const PracticeFile file("broken_off");
  EXPECT_TRUE(IsVacant(file.Url()));
  EXPECT_THROW(CreatePractice(file.Url(), {},
                              [](Practice& practice) {
                                EXPECT_EQ(Ask(practice, "SELECT COUNT(*) FROM OffLocTable"), "1");
                                throw session::DatabaseError("The disk is full.", {}, 1);
                              }),
               session::DatabaseError);
  EXPECT_TRUE(IsVacant(file.Url()));
  CreatePractice(file.Url());
  EXPECT_FALSE(IsVacant(file.Url()));
}

}  // namespace
}  // namespace host
