#include "recall/recall_stages.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "forms/text.h"

namespace recall {
namespace {

using forms::PeriodCode;
using forms::PeriodUnit;

constexpr std::int32_t kMostDays = std::numeric_limits<std::int32_t>::max();
constexpr StagePeriod kUsual{.number = 30, .unit = PeriodUnit::Days};

std::int32_t DaysOf(const Stage* stage) {
  const auto period = stage != nullptr ? stage->period.Code() : std::nullopt;
  if (!period) {
    return 0;
  }
  try {
    return period->Days();
  } catch (const std::overflow_error&) {
    return kMostDays;
  }
}

}  // namespace

StagePeriod StagePeriod::Parse(std::string_view text) {
  if (const auto code = PeriodCode::Parse(text)) {
    return {.number = code->number, .unit = code->unit};
  }
  const std::string_view trimmed = forms::Trim(text);
  const bool is_number = !trimmed.empty() && trimmed.find_first_of("0123456789") == 0;
  return {.number = is_number ? std::optional(forms::PeriodNumber(trimmed)) : std::nullopt};
}

std::optional<PeriodCode> StagePeriod::Code() const {
  return number && unit ? std::optional(PeriodCode{.number = *number, .unit = *unit}) : std::nullopt;
}

std::string StagePeriod::Text() const {
  return !number ? std::string() : unit ? Code()->Text() : std::to_string(*number);
}

RecallStages RecallStages::Default() {
  RecallStages stages;
  stages.due = Stage{.period = kUsual, .assumed = true};
  stages.late.push_back({.period = kUsual, .assumed = true});
  stages.stop = {.period = {.number = 2, .unit = PeriodUnit::Years}, .assumed = true};
  return stages;
}

Stage* RecallStages::At(int place) {
  if (place == kDue) {
    return due ? &*due : nullptr;
  }
  if (place == kStop) {
    return &stop;
  }
  return place > 0 && place <= LateCount() ? &late[static_cast<std::size_t>(place - 1)] : nullptr;
}

const Stage* RecallStages::At(int place) const {
  return const_cast<RecallStages*>(this)->At(place);  // NOLINT(cppcoreguidelines-pro-type-const-cast): read only here
}

std::vector<int> RecallStages::Places() const {
  std::vector<int> places;
  for (int place = kDue; place <= kStop; ++place) {
    if (At(place) != nullptr) {
      places.push_back(place);
    }
  }
  return places;
}

// What its bounds hang on: where no stage is past due, the tracking stops behind the due stage.
const Stage* RecallStages::Before(int place) const {
  return At(place == kStop ? LateCount() : place - 1);
}

void RecallStages::AddLate() {
  const Stage* before = At(LateCount());
  late.push_back({.period = before != nullptr && before->period.Code() ? before->period : kUsual});
}

void RecallStages::RemoveLate(int place) {
  late.erase(late.begin() + (place - 1));
}

RecallStages::Bounds RecallStages::BoundsOf(int place) const {
  Bounds bounds{.lower = 0, .upper = kMostDays};
  if (place > kDue && place <= kStop) {
    bounds.lower = recall::DaysOf(Before(place));
  }
  if (place > kDue && place < LateCount()) {
    bounds.upper = DaysOf(place + 1);
  }
  return bounds;
}

bool RecallStages::WithinBounds(int place) const {
  const Bounds bounds = BoundsOf(place);
  const std::int32_t days = DaysOf(place);
  return At(place) == nullptr || (days >= bounds.lower && days <= bounds.upper);
}

std::int32_t RecallStages::DaysOf(int place) const {
  return recall::DaysOf(At(place));
}

std::string RecallStages::Description(int place) const {
  const Stage* stage = At(place);
  if (stage == nullptr) {
    return {};
  }
  const std::string text = stage->period.Code().value_or(PeriodCode()).Words();
  if (place == kDue) {
    return "Send a reminder " + text + " before Preferred Date.";
  }
  if (place == kStop) {
    return "Stop tracking patient " + text + " after last visit.";
  }
  const auto before = At(place - 1) != nullptr ? At(place - 1)->period.Code() : std::nullopt;
  if (place == 1 || !before) {
    return "Past due 1 day to " + text + ".";
  }
  if (before->unit == PeriodUnit::Days) {
    const PeriodCode next{.number = std::min(before->number, kMostDays - 1) + 1, .unit = PeriodUnit::Days};
    return "Past due " + next.Words() + " to " + text + ".";
  }
  return "Past due " + before->Words() + " plus 1 day to " + text + ".";
}

std::int32_t RecallStages::SequenceOf(int place) {
  return place == kDue ? data::kDueStage : place == kStop ? data::kStopTrackingStage : place;
}

std::string RecallStages::NameOf(int place) {
  return place == kDue ? "Due Period" : place == kStop ? "Stop Tracking" : "Period " + std::to_string(place);
}

}  // namespace recall
