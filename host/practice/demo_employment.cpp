#include "practice/demo_employment.h"

#include <array>
#include <chrono>

namespace host::demo {
namespace {

using forms::Currency;
using std::chrono::days;
using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::sys_days;

constexpr std::string_view kWeek = "Mon-Fri";
constexpr std::array<std::string_view, 4> kReasons = {"Hired", "End of the trial period", "Annual review",
                                                      "More responsibility"};
// Kinds of clock times.
constexpr std::int32_t kWorked = 1;
constexpr std::int32_t kAbsent = 2;

forms::DateTime Opening(forms::Date day) {
  return forms::AtMidnight(day) + hours(8);
}
forms::DateTime Closing(forms::Date day) {
  return forms::AtMidnight(day) + hours(17);
}

bool AtWork(sys_days day) {
  return std::chrono::weekday(day).iso_encoding() < 6;
}

}  // namespace

void EmploymentMaker::MakeHistory(std::int32_t person, const Post& post, forms::Date since) {
  const int statuses = office_.Details().Between(2, static_cast<int>(kReasons.size()));
  const auto span = (sys_days(kToday) - sys_days(since)) / statuses;
  for (int i = 0; i < statuses; ++i) {
    const forms::Date from = sys_days(since) + i * span;
    const bool newest = i == statuses - 1;
    const int salary = post.salary * (100 - 4 * (statuses - 1 - i)) / 100;
    const std::int32_t status = pay_.Row(person, from, i > 0 ? 1 : 0, post.department, Currency::FromWhole(salary),
                                         40 + 20 * i, 40, 16, forms::Date(sys_days(from) + days(365)), Opening(from),
                                         Closing(from), kWeek, kReasons.at(static_cast<std::size_t>(i)), "admin", from);
    MakeSchedules(status, newest ? static_cast<int>(person) : 0);
  }
}

// The whole week at the first location; some of those who are at another now and then keep other hours there.
void EmploymentMaker::MakeSchedules(std::int32_t status, int which) {
  constexpr std::array<std::string_view, 3> kDays = {kWeek, "Tue,Thu", "Fri"};
  for (std::size_t i = 0; i < locations_.size(); ++i) {
    const bool elsewhere = i > 0 && which % 2 == 1;
    schedules_.Row(status, locations_[i], Opening(kToday) + hours(elsewhere ? 1 : 0),
                   Closing(kToday) - hours(elsewhere ? 2 : 0), elsewhere ? kDays.at(i % kDays.size()) : kWeek);
  }
}

void EmploymentMaker::MakeClockTimes(std::int32_t person) {
  constexpr int kDays = 14;
  Random& details = office_.Details();
  for (int ago = kDays; ago > 0; --ago) {
    const forms::Date day = office_.DaysAgo(ago);
    if (AtWork(day)) {
      clock_.Row(person, Opening(day) + minutes(details.Between(-10, 10)),
                 Closing(day) + minutes(details.Between(-5, 30)), kWorked);
    }
  }
  sys_days off = sys_days(kToday) + days(details.Between(10, 30));
  while (!AtWork(off)) {
    off += days(1);
  }
  absences_.Row(clock_.Row(person, Opening(off), Closing(off), kAbsent));
}

void EmploymentMaker::Flush() {
  for (TableWriter* writer : {&pay_, &schedules_, &clock_, &absences_}) {
    writer->Flush();
  }
}

}  // namespace host::demo
