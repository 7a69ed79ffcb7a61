#include "recall/recall_stages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace recall {
namespace {

Stage Of(const char* period) {
  return {.period = StagePeriod::Parse(period)};
}

RecallStages Ladder(const char* due, std::initializer_list<const char*> late, const char* stop) {
  RecallStages stages;
  if (*due != '\0') {
    stages.due = Of(due);
  }
  for (const char* period : late) {
    stages.late.push_back(Of(period));
  }
  stages.stop = Of(stop);
  return stages;
}

TEST(RecallStages, LieBetweenTheirNeighbours) {
  RecallStages stages = Ladder("30D", {"30D", "1Y", "12M"}, "365D");
  EXPECT_TRUE(stages.WithinBounds(0));
  EXPECT_TRUE(stages.WithinBounds(1));   // as long as the due stage
  EXPECT_FALSE(stages.WithinBounds(2));  // a year is longer than twelve months
  EXPECT_FALSE(stages.WithinBounds(3));
  EXPECT_TRUE(stages.WithinBounds(RecallStages::kStop));
  stages.RemoveLate(2);
  EXPECT_TRUE(stages.WithinBounds(2));
  stages.late.front() = Of("29D");
  EXPECT_FALSE(stages.WithinBounds(1));
}

TEST(RecallStages, StopBehindTheLastThatThereIs) {
  EXPECT_EQ(Ladder("45D", {}, "2Y").BoundsOf(RecallStages::kStop).lower, 45);
  EXPECT_EQ(Ladder("", {}, "2Y").BoundsOf(RecallStages::kStop).lower, 0);
  EXPECT_EQ(Ladder("", {"1M"}, "2Y").BoundsOf(1).lower, 0);
  RecallStages endless = Ladder("", {}, "");
  endless.stop.period = {.number = 2147483647, .unit = forms::PeriodUnit::Years};
  EXPECT_EQ(endless.DaysOf(RecallStages::kStop), 2147483647);
}

TEST(RecallStages, AreDescribedByTheOnesBefore) {
  const RecallStages stages = Ladder("1D", {"30D", "2M", "1Y"}, "");
  EXPECT_EQ(stages.Description(0), "Send a reminder 1 day before Preferred Date.");
  EXPECT_EQ(stages.Description(1), "Past due 1 day to 30 days.");
  EXPECT_EQ(stages.Description(2), "Past due 31 days to 2 months.");
  EXPECT_EQ(stages.Description(3), "Past due 2 months plus 1 day to 1 year.");
  EXPECT_EQ(stages.Description(RecallStages::kStop), "Stop tracking patient  after last visit.");
}

TEST(RecallStages, BeginAsLongAsTheOneBefore) {
  RecallStages stages = Ladder("45D", {}, "2Y");
  stages.AddLate();
  stages.late.front() = Of("3M");
  stages.AddLate();
  EXPECT_EQ(stages.late.back().period, StagePeriod::Parse("3M"));
  EXPECT_THAT(stages.Places(), testing::ElementsAre(0, 1, 2, RecallStages::kStop));
}

}  // namespace
}  // namespace recall
