#include "practice/demo_staff.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <set>

#include "data/literal.h"
#include "data/statements.h"
#include "practice/demo_words.h"
#include "practice/logins.h"
#include "practice/settings.h"

namespace host::demo {
namespace {

using data::Literal;
using forms::Currency;

constexpr std::array<std::string_view, 3> kLocations = {"Main Office", "North Side", "Lakeside"};
constexpr std::array<std::string_view, 4> kIdTypes = {"State Licence", "National Provider ID", "Medicaid Number",
                                                      "Controlled Substances"};

struct Specialty {
  std::string_view name;
  std::string_view taxonomy;
};
constexpr std::array kSpecialties = {
    Specialty{"General Practice", "1223G0001X"}, Specialty{"Orthodontics", "1223X0400X"},
    Specialty{"Pediatric Dentistry", "1223P0221X"}, Specialty{"Endodontics", "1223E0200X"}};

struct Post {
  std::string_view department;
  std::string_view professional_title;
  int salary;
};
constexpr std::array<Post, 8> kPosts = {{{"Management", "", 68000},
                                         {"Front Desk", "", 41000},
                                         {"Hygiene", "RDH", 72000},
                                         {"Hygiene", "RDH", 70500},
                                         {"Assisting", "CDA", 43500},
                                         {"Assisting", "CDA", 42000},
                                         {"Assisting", "", 38500},
                                         {"Billing", "", 45000}}};

class StaffMaker {
 public:
  StaffMaker(DemoOffice& office, const Passwords& passwords)
      : office_(office), passwords_(passwords), persons_(office.PersonWriter()) {}

  Staff Make(std::int32_t patients) {
    MakeLocations();
    MakeProviders(4 + std::min(patients / 5000, 12));
    for (const Post& post : kPosts) {
      MakeEmployee(post);
    }
    MakeOthers();
    for (TableWriter* writer : {&persons_, &id_types_, &ids_, &pay_, &schedules_}) {
      writer->Flush();
    }
    DescribeProviders();
    WriteOfficeSetting(office_.Database(), kOfficeDefaults, "OFF_PRA_PRO", std::to_string(staff_.providers.front()));
    WriteOfficeSetting(office_.Database(), kOfficeDefaults, kDefaultProvider, std::to_string(staff_.providers.front()));
    return std::move(staff_);
  }

 private:
  void MakeLocations() {
    const data::Statements statements(office_.Database());
    for (std::size_t i = 0; i < kLocations.size(); ++i) {
      const Address address = office_.MakeAddress();
      const data::Assignments values = {{"OffLocNam", Literal(kLocations[i])},
                                        {"OffLocAd1", Literal(address.line1)},
                                        {"OffLocCit", Literal(address.place.city)},
                                        {"OffLocSta", Literal(address.place.state)},
                                        {"OffLocZip", Literal(address.place.zip)},
                                        {"OffLocPho", Literal(office_.MakePhone())},
                                        {"OffLocFax", Literal(office_.MakePhone())},
                                        {"OffLocEma", Literal("office" + std::to_string(i + 1) + "@example.com")},
                                        {"OffLocBacClr", Literal(static_cast<std::int32_t>(0xF0F0FF - i * 0x101000))},
                                        {"OffLocForClr", Literal(0)}};
      if (i > 0) {
        staff_.locations.push_back(statements.Insert("OffLocTable", values));
        continue;
      }
      // The practice was made with its first location.
      staff_.locations.push_back(session::ToId(
          statements.SelectValue("SELECT TOP 1 OffLocID FROM OffLocTable WHERE (OffLocID>0)" + statements.Office())));
      statements.Update("OffLocTable", values, "OffLocID", staff_.locations.front());
    }
  }

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

  void MakeProviders(int count) {
    std::vector<std::int32_t> types;
    for (std::size_t i = 0; i < kIdTypes.size(); ++i) {
      types.push_back(id_types_.Row(static_cast<std::int32_t>(i + 1), kIdTypes[i]));
    }
    for (int i = 0; i < count; ++i) {
      Person person = Adult(i % 2 == 0 ? "DDS" : "DMD");
      person.title = "Dr.";
      person.provider = true;
      person.employee = "2";
      const std::string initials = Initials(person);
      person.initials = initials;
      const std::int32_t id = office_.AddPerson(persons_, person);
      staff_.providers.push_back(id);
      staff_.provider_names.push_back(std::string(person.last) + ", " + std::string(person.first));
      for (std::size_t type = 0; type < 2; ++type) {
        ids_.Row(id, types[type], std::to_string(office_.Chance().Between(1000000, 9999999)));
      }
      MakePay(id, {"Dentistry", "", 140000});
    }
  }

  // What health plans ask of them.
  void DescribeProviders() {
    const data::Statements statements(office_.Database());
    for (std::size_t i = 0; i < staff_.providers.size(); ++i) {
      const auto number = static_cast<int>(i);
      const Specialty& specialty = kSpecialties.at(i % kSpecialties.size());
      statements.Update("PATable",
                        {{"pDOCSPE", Literal(specialty.name)},
                         {"pDOCTAX", Literal(specialty.taxonomy)},
                         {"pDOCLIC", Literal("TX-" + std::to_string(21480 + 37 * number))},
                         {"pDOCEIN", Literal("74-" + std::to_string(2310550 + 911 * number))},
                         {"pDOCDATEMP", Literal(office_.DaysAgo(500 + 730 * number))}},
                        "pID", staff_.providers[i]);
    }
  }

  void MakeEmployee(const Post& post) {
    Person person = Adult(post.professional_title);
    person.employee = "1";
    const std::string initials = Initials(person);
    person.initials = initials;
    const std::int32_t id = office_.AddPerson(persons_, person);
    MakePay(id, post);
    if (post.department == "Management") {
      AddLogin(office_.Database(), {"admin", passwords_.admin, id, staff_.locations, {std::string(kSupervisorRight)}});
    } else if (post.department == "Front Desk") {
      NewLogin login{"front", passwords_.front, id, staff_.locations, {}};
      for (const session::Right& right : RightsCatalogue()) {
        if (right.by_default) {
          login.rights.push_back(right.keyword);
        }
      }
      AddLogin(office_.Database(), login);
    }
  }

  void MakePay(std::int32_t person, const Post& post) {
    const forms::Date since = office_.DaysAgo(office_.Chance().Between(200, 4000));
    const forms::DateTime opens = forms::AtMidnight(since) + std::chrono::hours(8);
    const forms::DateTime closes = opens + std::chrono::hours(9);
    const std::int32_t status = pay_.Row(person, since, 1, post.department, Currency::FromWhole(post.salary), 80, 40,
                                         16, opens, closes, "Mon-Fri", "admin", since);
    for (const std::int32_t location : staff_.locations) {
      schedules_.Row(status, location, opens, closes, "Mon-Fri");
    }
  }

  // The people that patients are sent by, and their physicians.
  void MakeOthers() {
    for (int i = 0; i < 12; ++i) {
      Person person = Adult(i % 3 == 0 ? "DDS" : "");
      person.referral = true;
      staff_.referrals.push_back(office_.AddPerson(persons_, person));
    }
    for (int i = 0; i < 10; ++i) {
      Person person = Adult("MD");
      person.title = "Dr.";
      person.physician = true;
      staff_.physicians.push_back(office_.AddPerson(persons_, person));
    }
  }

  DemoOffice& office_;
  const Passwords& passwords_;
  TableWriter persons_;
  TableWriter id_types_ = office_.Writer("IDTypTable", "IDTypAutoID, IDTypID, IDTypDes");
  TableWriter ids_ = office_.Writer("DrIDTable", "DrIDID, DrIDpID, DrIDTypID, DrIDVal");
  TableWriter pay_ = office_.Writer("EBTable",
                                    "EBID, EBPid, EBAPPDAT, EBFulTimFla, EBDep, EBAnnSalAmt, EBAnnVacHou, EBAnnSicHou, "
                                    "EBAnnPerHou, EBWorStaTim, EBWorEndTim, EBWorDay, EBWhoCre, EBDatCre");
  TableWriter schedules_ = office_.Writer("ESTable", "ESID, EBID, OffLocID, ESWorStaTim, ESWorEndTim, ESWorDay");
  std::set<std::string> initials_;
  Staff staff_;
};

}  // namespace

Staff MakeStaff(DemoOffice& office, const Passwords& passwords, std::int32_t patients) {
  return StaffMaker(office, passwords).Make(patients);
}

}  // namespace host::demo
