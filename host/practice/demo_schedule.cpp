#include "practice/demo_schedule.h"

#include <chrono>
#include <string>

namespace host::demo {
namespace {

// Templates of this type stay in use once they have started.
constexpr std::int32_t kLastingTemplate = 3;
constexpr int kWeekdays = 5;

}  // namespace

std::vector<std::int32_t> MakeSchedule(DemoOffice& office, const Staff& staff) {
  auto operatories = office.Writer("opTable", "OpID, OpDes, OpPrefDrID, OffLocID");
  auto hours = office.Writer("ATTable", "ATID, ATDrID, ATDay, ATStaTim, ATEndTim, OffLocID");
  auto templates = office.Writer("TemplateTable", "tmpID, tmpDrID, tmpDes, tmpTyp, OffLocID");
  auto setups = office.Writer("TemplateSetupTable", "tstID, tstTmpID, tstStaDat, tstTyp");
  auto assignments = office.Writer("AOATable", "AOAID, AOADrID, AOAOpID, AOADat");

  std::vector<std::int32_t> made;
  for (std::size_t i = 0; i < 2 * staff.locations.size(); ++i) {
    made.push_back(operatories.Row("Operatory " + std::to_string(i + 1), staff.providers[i % staff.providers.size()],
                                   staff.locations[i / 2]));
  }
  const forms::DateTime opens = forms::AtMidnight(kToday) + std::chrono::hours(8);
  for (std::size_t i = 0; i < staff.providers.size(); ++i) {
    const std::int32_t provider = staff.providers[i];
    const std::int32_t location = staff.locations[i % staff.locations.size()];
    for (std::int32_t day = 1; day <= kWeekdays; ++day) {
      hours.Row(provider, day, opens, opens + std::chrono::hours(9), location);
    }
    const std::int32_t current = templates.Row(provider, "Usual week", kLastingTemplate, location);
    setups.Row(current, office.DaysAgo(300), kLastingTemplate);
    const std::int32_t planned = templates.Row(provider, "Summer weeks", kLastingTemplate, location);
    setups.Row(planned, office.DaysAgo(-200), kLastingTemplate);
    assignments.Row(provider, made[i % made.size()], office.DaysAgo(-7));
  }
  for (TableWriter* writer : {&operatories, &hours, &templates, &setups, &assignments}) {
    writer->Flush();
  }
  return made;
}

void AppointmentMaker::Make(std::int32_t patient, std::int32_t provider) {
  constexpr std::int32_t kEvery = 3;
  constexpr int kAhead = 60;
  if (patient % kEvery != 0) {
    return;
  }
  std::chrono::sys_days day = std::chrono::sys_days(kToday) + std::chrono::days(3 + patient / kEvery % kAhead);
  if (std::chrono::weekday(day).iso_encoding() > kWeekdays) {
    day += std::chrono::days(2);
  }
  const forms::DateTime begins = forms::AtMidnight(day) + std::chrono::hours(8 + patient % 9);
  appointments_.Row(patient, provider, operatories_[static_cast<std::size_t>(patient) % operatories_.size()], begins,
                    patient % 2 == 0 ? 30 : 60, patient % 2 == 0 ? "Cleaning" : "Examination");
}

}  // namespace host::demo
