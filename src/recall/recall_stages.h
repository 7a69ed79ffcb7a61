#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/reminders.h"
#include "forms/period_code.h"
#include "recall/notices.h"

namespace recall {

// The period of a stage, of which a part may be missing.
struct StagePeriod {
  std::optional<std::int32_t> number = {};
  std::optional<forms::PeriodUnit> unit = {};

  // "45" is a number without a unit.
  static StagePeriod Parse(std::string_view text);
  // None as long as a part is missing.
  std::optional<forms::PeriodCode> Code() const;
  // "30D", "45"; empty without a number.
  std::string Text() const;

  friend bool operator==(const StagePeriod&, const StagePeriod&) = default;
};

// A stage of a recall, and what it sends.
struct Stage {
  StagePeriod period = {};
  bool assumed = false;  // the period is the usual one, which is stored nowhere yet
  Notices notices = {};
  std::optional<std::int32_t> sequence = {};  // `emsSeq` under which the practice knows it; none for a new one
  std::int32_t row = 0;                       // `emsID` and `rmtID`; 0 while there is none
  std::int32_t message_row = 0;

  friend bool operator==(const Stage&, const Stage&) = default;
};

// The ladder of a recall: a stage before the due date, up to six past it, and the one that ends the tracking. A stage
// is known by its place: 0 is the due stage, 1 to 6 are past due, 7 stops the tracking.
class RecallStages {
 public:
  static constexpr int kDue = 0;
  static constexpr int kMostLate = data::kMostPastDueStages;
  static constexpr int kStop = kMostLate + 1;

  // Of a recall for which nothing has been set: "30D", "30D", "2Y".
  static RecallStages Default();

  std::optional<Stage> due;
  std::vector<Stage> late;
  Stage stop;

  int LateCount() const { return static_cast<int>(late.size()); }
  // Nullptr where there is no such stage.
  Stage* At(int place);
  const Stage* At(int place) const;
  // The places that have a stage, in their order.
  std::vector<int> Places() const;

  // Puts a stage behind the others past due; it begins as long as the one before it.
  void AddLate();
  // The later ones move up with their notices.
  void RemoveLate(int place);

  // In days, both inclusive.
  struct Bounds {
    std::int32_t lower = 0;
    std::int32_t upper = 0;
  };
  Bounds BoundsOf(int place) const;
  bool WithinBounds(int place) const;
  // 0 for a stage without a period; the most there is for one past 32 bits.
  std::int32_t DaysOf(int place) const;
  // "Past due 31 days to 60 days."
  std::string Description(int place) const;

  // `emsSeq` of a stage at the place.
  static std::int32_t SequenceOf(int place);
  // "Due Period", "Period 3", "Stop Tracking".
  static std::string NameOf(int place);

  friend bool operator==(const RecallStages&, const RecallStages&) = default;

 private:
  const Stage* Before(int place) const;
};

}  // namespace recall
