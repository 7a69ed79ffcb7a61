#include "people/work_hours_field.h"

#include <algorithm>

#include "forms/weekdays.h"

namespace people {
namespace {

constexpr int kStep = 15;  // minutes
constexpr int kOfADay = 24 * 60;
constexpr std::int32_t kNoTime = -1;

}  // namespace

WorkHoursField::WorkHoursField(const Parts& parts) : parts_(parts) {
  for (std::size_t day = 0; day < parts_.days.size(); ++day) {
    parts_.days.at(day).Caption = std::string(forms::kWeekdayNames.at(day));
    parts_.days.at(day).Click = [this] { PickDays(); };
  }
  parts_.start.Click = [this] { PickTime(parts_.start, hours_.start); };
  parts_.end.Click = [this] { PickTime(parts_.end, hours_.end); };
}

void WorkHoursField::Show(const WorkHours& hours) {
  hours_ = hours;
  const auto days = forms::ParseWeekdays(hours_.days);
  for (std::size_t day = 0; day < parts_.days.size(); ++day) {
    parts_.days.at(day).Value = days && (*days)[day] ? forms::CheckState::On : forms::CheckState::Off;
  }
  parts_.other_days.Caption = days ? std::string() : "Stored: " + hours_.days;
  ShowTime(parts_.start, hours_.start);
  ShowTime(parts_.end, hours_.end);
}

// A time between those that are offered stands among them.
void WorkHoursField::ShowTime(forms::ComboBox& box, const std::optional<std::chrono::minutes>& time) {
  std::vector<int> offered;
  for (int minute = 0; minute < kOfADay; minute += kStep) {
    offered.push_back(minute);
  }
  const auto shown = time ? static_cast<int>(time->count()) : kNoTime;
  if (time && std::ranges::find(offered, shown) == offered.end()) {
    offered.insert(std::ranges::upper_bound(offered, shown), shown);
  }
  std::vector<forms::ListItem> items = {{.text = "", .data = kNoTime}};
  for (const int minute : offered) {
    items.push_back({.text = FormatTimeOfDay(std::chrono::minutes(minute)), .data = minute});
  }
  box.Items = std::move(items);
  box.ListIndex = box.IndexOfData(shown);
}

void WorkHoursField::PickDays() {
  forms::Weekdays days;
  for (std::size_t day = 0; day < parts_.days.size(); ++day) {
    days[day] = parts_.days.at(day).Value == forms::CheckState::On;
  }
  hours_.days = forms::FormatWeekdays(days);
  parts_.other_days.Caption = std::string();
  Picked();
}

void WorkHoursField::PickTime(const forms::ComboBox& box, std::optional<std::chrono::minutes>& time) const {
  const forms::ListItem* picked = box.Current();
  time.reset();
  if (picked != nullptr && picked->data != kNoTime) {
    time = std::chrono::minutes(picked->data);
  }
  Picked();
}

}  // namespace people
