#include "practice/demo.h"

#include "practice/demo_families.h"
#include "practice/demo_insurance.h"
#include "practice/demo_office.h"
#include "practice/demo_recalls.h"
#include "practice/demo_schedule.h"
#include "practice/demo_staff.h"
#include "practice/settings.h"

namespace host {
namespace {

void FillZipTable(demo::DemoOffice& office) {
  auto writer = office.Writer("ZipCodTable", "ZipCodID, ZipCodZip, ZipCodCit, ZipCodSta");
  for (const Place& place : UnitedStatesPlaces()) {
    writer.Row(place.zip, place.city, place.state);
  }
  writer.Flush();
}

}  // namespace

void FillDemo(Practice& practice, const DemoOptions& options) {
  const demo::Passwords passwords{HashPassword("admin", options.password_cost),
                                  HashPassword("front", options.password_cost)};
  demo::Identities identities(options.seed);
  for (const std::int32_t number : practice.Offices()) {
    demo::DemoOffice office(practice, number, identities, options.seed + static_cast<std::uint64_t>(number));
    FillZipTable(office);
    WriteOfficeSetting(office.Database(), kDeskSection, kLoginHint,
                       "This is the demo practice. Log in as admin with the password admin,\n"
                       "or as front with front, who has fewer rights.");
    demo::OfficeRecords records;
    records.staff = demo::MakeStaff(office, passwords, options.patients);
    const std::int32_t location = records.staff.locations.front();
    records.insurance = demo::MakeInsurance(office, options.patients, location);
    records.reminder_kinds = demo::MakeReminderKinds(office);
    records.recalls = demo::MakeRecallMasters(office, location, records.reminder_kinds);
    records.operatories = demo::MakeSchedule(office, records.staff);
    demo::MakeFamilies(office, records, options.patients);
  }
}

Practice MakeDemo(const std::string& url, const DemoOptions& options) {
  return CreatePractice(url, options.practice, [&options](Practice& practice) { FillDemo(practice, options); });
}

}  // namespace host
