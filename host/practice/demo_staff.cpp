#include "practice/demo_staff.h"

#include <algorithm>
#include <array>
#include <set>

#include "data/literal.h"
#include "data/statements.h"
#include "practice/demo_employment.h"
#include "practice/demo_locations.h"
#include "practice/logins.h"
#include "practice/settings.h"

namespace host::demo {
namespace {

using data::Literal;

constexpr std::array<std::string_view, 4> kIdTypes = {"State Licence", "National Provider ID", "Medicaid Number",
                                                      "Controlled Substances"};
constexpr std::size_t kNationalProviderId = 1;  // has ten digits

constexpr std::string_view kHygienist = "124Q00000X";
constexpr std::string_view kAssistant = "126800000X";
constexpr std::array<Post, 8> kPosts = {{{"Management", "", "", 68000},
                                         {"Front Desk", "", "", 41000},
                                         {"Hygiene", "RDH", kHygienist, 72000},
                                         {"Hygiene", "RDH", kHygienist, 70500},
                                         {"Assisting", "CDA", kAssistant, 43500},
                                         {"Assisting", "CDA", kAssistant, 42000},
                                         {"Assisting", "", "", 38500},
                                         {"Billing", "", "", 45000}}};
constexpr std::size_t kHasLeft = 6;
// Hygiene and assistants come and go by the clock.
constexpr std::size_t kFirstByTheClock = 2;
constexpr std::size_t kLastByTheClock = 4;

struct Specialty {
  std::string_view name;
  std::string_view taxonomy;
};
constexpr std::array<Specialty, 8> kSpecialties = {{{"General Practice", "1223G0001X"},
                                                    {"General Practice", "122300000X"},
                                                    {"Orthodontics", "1223X0400X"},
                                                    {"Endodontics", "1223E0200X"},
                                                    {"Pediatric Dentistry", "1223P0221X"},
                                                    {"Periodontics", "1223P0300X"},
                                                    {"Oral Surgery", "1223S0112X"},
                                                    {"Prosthodontics", "1223P0700X"}}};

class StaffMaker {
 public:
  StaffMaker(DemoOffice& office, const Passwords& passwords)
      : office_(office),
        passwords_(passwords),
        staff_{.locations = MakeLocations(office)},
        persons_(office.PersonWriter()) {}

  Staff Make(std::int32_t patients) {
    MakeProviders(4 + std::min(patients / 5000, 12));
    for (std::size_t i = 0; i < kPosts.size(); ++i) {
      MakeEmployee(kPosts.at(i), i);
    }
    MakeOthers();
    for (TableWriter* writer : {&persons_, &id_types_, &ids_}) {
      writer->Flush();
    }
    employment_.Flush();
    WriteOfficeSetting(office_.Database(), kOfficeDefaults, "OFF_PRA_PRO", std::to_string(staff_.providers.front()));
    WriteOfficeSetting(office_.Database(), kOfficeDefaults, kDefaultProvider, std::to_string(staff_.providers.front()));
    return std::move(staff_);
  }

 private:
  Person Adult(std::string_view professional_title) {
    Person person = office_.MakePerson(office_.LastName(), office_.Chance().Percent(60),
                                       office_.Chance().Between(24, 64), {.address = office_.MakeAddress()});
    person.professional_title = professional_title;
    person.home_phone = office_.MakePhone();
    person.work_phone = office_.MakePhone();
    person.location = staff_.locations.front();
    return person;
  }

  // First letters of first and last name, and a number where those are taken.
  std::string Initials(const Person& person) {
    const std::string letters = {person.first.front(), person.last.front()};
    std::string initials = letters;
    for (int number = 2; !initials_.insert(initials).second; ++number) {
      initials = letters + std::to_string(number);
    }
    return initials;
  }

  std::string Licence() { return "D-" + Digits(office_.Details().Below(1000000), 6); }
  forms::Date Employed() { return office_.DaysAgo(office_.Chance().Between(200, 4000)); }

  void MakeProviders(int count) {
    std::vector<std::int32_t> types;
    for (std::size_t i = 0; i < kIdTypes.size(); ++i) {
      types.push_back(id_types_.Row(static_cast<std::int32_t>(i + 1), kIdTypes[i]));
    }
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
      const Specialty& specialty = kSpecialties.at(i % kSpecialties.size());
      Person person = Adult(i % 2 == 0 ? "DDS" : "DMD");
      person.title = "Dr.";
      person.provider = true;
      person.employee = "2";
      const std::string initials = Initials(person);
      person.initials = initials;
      person.specialty = specialty.name;
      person.taxonomy = specialty.taxonomy;
      person.licence = Licence();
      person.tax_number = "00-" + Digits(office_.Details().Below(10000000), 7);
      person.fee_schedule = 1 + static_cast<std::int32_t>(i % 4);
      person.employed = Employed();
      const std::int32_t id = office_.AddPerson(persons_, person);
      staff_.providers.push_back(id);
      staff_.provider_names.push_back(std::string(person.last) + ", " + std::string(person.first));
      // No two providers have numbers of the same kinds.
      for (std::size_t type = 0; type < types.size(); ++type) {
        Random& chance = type < 2 ? office_.Chance() : office_.Details();
        if (type < 2 || (i + type) % 3 != 0) {
          ids_.Row(
              id, types[type],
              std::string(type == kNationalProviderId ? "100" : "") + std::to_string(chance.Between(1000000, 9999999)));
        }
      }
      employment_.MakeHistory(id, {.department = "Dentistry", .salary = 140000}, *person.employed);
    }
  }

  void MakeEmployee(const Post& post, std::size_t place) {
    const bool gone = place == kHasLeft;
    Person person = Adult(post.professional_title);
    const std::string initials = Initials(person);
    person.employee = gone ? "0" : "1";
    person.taxonomy = post.taxonomy;
    if (post.taxonomy == kHygienist) {
      person.licence = Licence();
    }
    person.employed = Employed();
    if (gone) {
      person.released = office_.DaysAgo(45);
    } else {
      person.initials = initials;
    }
    const std::int32_t id = office_.AddPerson(persons_, person);
    employment_.MakeHistory(id, post, *person.employed);
    if (place >= kFirstByTheClock && place <= kLastByTheClock) {
      employment_.MakeClockTimes(id);
    }
    MakeLogin(id, place);
  }

  void MakeLogin(std::int32_t person, std::size_t place) {
    session::Database& database = office_.Database();
    const std::vector<std::int32_t>& locations = staff_.locations;
    const auto rights = [](std::string_view one_more) {
      std::vector<std::string> keywords;
      for (const session::Right& right : RightsCatalogue()) {
        if (right.by_default || right.keyword == one_more) {
          keywords.emplace_back(right.keyword);
        }
      }
      return keywords;
    };
    switch (place) {
      case 0:
        AddLogin(database, {"admin", passwords_.admin, person, locations, {std::string(kSupervisorRight)}});
        break;
      case 1:
        AddLogin(database, {"front", passwords_.front, person, locations, rights({})});
        break;
      case 2:
        LetLookElsewhere(
            AddLogin(database, {"hygiene", passwords_.front, person, {locations[0], locations[1]}, rights({})}));
        break;
      case 7:
        LetLookElsewhere(
            AddLogin(database, {"billing", passwords_.front, person, locations, rights("CC_CAN_ADD_NEW")}));
        break;
      default:
        break;
    }
  }

  // Of what the login may do at its first location it may only see the records at the others.
  void LetLookElsewhere(std::int32_t login) {
    const data::Statements statements(office_.Database());
    statements.Execute("UPDATE PWATable SET PWAWriFla=0, PWAFla1=0, PWAFla2=0 WHERE (PWAPWMID=" + Literal(login) +
                       ") AND (OffLocID<>" + Literal(staff_.locations.front()) + ")" + statements.Office());
  }

  // The people that patients are sent by, and their physicians.
  void MakeOthers() {
    for (std::size_t i = 0; i < 12; ++i) {
      Person person = Adult(i % 3 == 0 ? "DDS" : "");
      person.referral = true;
      if (i % 3 == 0) {
        person.specialty = kSpecialties.at(2 + i % 5).name;
        person.taxonomy = kSpecialties.at(2 + i % 5).taxonomy;
        person.licence = Licence();
      }
      staff_.referrals.push_back(office_.AddPerson(persons_, person));
    }
    for (int i = 0; i < 10; ++i) {
      Person person = Adult("MD");
      person.title = "Dr.";
      person.physician = true;
      person.specialty = i % 3 == 2 ? "Cardiology" : "Family Medicine";
      person.licence = Licence();
      staff_.physicians.push_back(office_.AddPerson(persons_, person));
    }
  }

  DemoOffice& office_;
  const Passwords& passwords_;
  Staff staff_;
  TableWriter persons_;
  TableWriter id_types_ = office_.Writer("IDTypTable", "IDTypAutoID, IDTypID, IDTypDes");
  TableWriter ids_ = office_.Writer("DrIDTable", "DrIDID, DrIDpID, DrIDTypID, DrIDVal");
  EmploymentMaker employment_{office_, staff_.locations};
  std::set<std::string> initials_;
};

}  // namespace

Staff MakeStaff(DemoOffice& office, const Passwords& passwords, std::int32_t patients) {
  return StaffMaker(office, passwords).Make(patients);
}

}  // namespace host::demo
