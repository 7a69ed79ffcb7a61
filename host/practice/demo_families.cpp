#include "practice/demo_families.h"

#include <algorithm>
#include <array>

#include "practice/demo_coverages.h"
#include "practice/demo_households.h"
#include "practice/demo_schedule.h"
#include "practice/recall_refresh.h"

namespace host::demo {
namespace {

using forms::Currency;

using Relation = HouseholdMaker::Relation;

constexpr int kOfAge = 18;

struct Charge {
  std::string_view code;
  std::string_view description;
  int fee;
};
constexpr std::array<Charge, 4> kCharges = {{{"D1001", "Cleaning, adult", 110},
                                             {"D0101", "Examination, periodic", 62},
                                             {"D2001", "Filling, one surface", 185},
                                             {"D2701", "Crown, ceramic", 1340}}};

class FamilyMaker {
 public:
  FamilyMaker(DemoOffice& office, const OfficeRecords& records)
      : office_(office), chance_(office.Chance()), records_(records), persons_(office.PersonWriter()) {}

  void Make(std::int32_t patients) {
    while (patients > 0) {
      const int size = std::min(patients, FamilySize());
      MakeFamily(size);
      patients -= size;
    }
    households_.Flush();
    for (TableWriter* writer : {&persons_, &families_, &recalls_, &charges_, &accounts_}) {
      writer->Flush();
    }
    appointments_.Flush();
    reminders_.Flush();
    coverages_.Finish();
  }

 private:
  int FamilySize() {
    const int share = chance_.Below(100);
    return share < 32 ? 1 : share < 58 ? 2 : share < 76 ? 3 : share < 92 ? 4 : 5;
  }

  void MakeFamily(int size) {
    members_.clear();
    size_ = size;
    const auto drawn = office_.LastName();
    const auto [last, woman] = households_.NextName(drawn, chance_.Percent(50));
    const int age = chance_.Between(size > 2 ? 28 : 20, size > 2 ? 52 : 88);
    household_ = {.address = office_.MakeAddress(),
                  .home_phone = office_.MakePhone(),
                  .patient = true,
                  .provider_id = Pick(records_.staff.providers),
                  .referral_id = chance_.Percent(40) ? Pick(records_.staff.referrals) : 0,
                  .physician_id = chance_.Percent(50) ? Pick(records_.staff.physicians) : 0,
                  .pharmacy = chance_.Percent(60) ? Pick(records_.insurance.pharmacies) : 0,
                  .location = Pick(records_.staff.locations)};
    const Work head_work = coverages_.FindWork(age);
    AddMember(last, woman, age, Relation::Self, head_work.link);
    Work spouse_work;
    if (size > 1) {
      const int spouse_age = std::clamp(age + chance_.Between(-6, 6), 20, 95);
      spouse_work = coverages_.FindWork(spouse_age);
      AddMember(chance_.Percent(85) ? last : office_.LastName(), !woman, spouse_age, Relation::Spouse,
                spouse_work.link);
    }
    for (int child = 2; child < size; ++child) {
      const int child_age = chance_.Between(1, std::min(age - 20, 19));
      const auto dependent = households_.MakeDependent(child_age, age, size > 3 && child == size - 1);
      AddMember(last, chance_.Percent(50), dependent.age, dependent.relation, 0);
    }
    std::vector<std::int32_t> ids;
    for (const Member& member : members_) {
      families_.Row(member.id, members_.front().id);
      ids.push_back(member.id);
    }
    households_.Display(ids, household_.location);
    coverages_.Make(members_, head_work, spouse_work);
    for (const Member& member : members_) {
      MakeHistory(member);
      appointments_.Make(member.id, household_.provider_id);
    }
  }

  void AddMember(std::string_view last, bool woman, int age, Relation relation, std::int32_t employer_link) {
    Person person = office_.MakePerson(last, woman, age, household_);
    if (relation == Relation::Self) {
      households_.Head(person, size_ == 1);
    }
    if (age >= kOfAge) {
      person.driving_licence = "L" + Digits(office_.Details().Below(10000000), 7);
    }
    person.family_head = members_.empty() ? 0 : members_.front().id;
    person.employer_link = employer_link;
    if (employer_link != 0) {
      person.work_phone = office_.MakePhone();
    }
    members_.push_back({office_.AddPerson(persons_, person), relation, age});
  }

  void MakeHistory(const Member& member) {
    const int visited = chance_.Between(5, 900);
    const RecallMaster* tracked = nullptr;
    if (chance_.Percent(80)) {
      const bool dependent = member.relation == Relation::Child || member.relation == Relation::Other;
      const std::size_t usual = dependent ? (member.age < kOfAge ? 1 : 0) : (chance_.Percent(85) ? 0 : 2);
      const RecallMaster& recall = records_.recalls[usual];
      const auto provider = static_cast<std::size_t>(chance_.Below(records_.staff.providers.size()));
      recalls_.Row(member.id, recall.number, records_.staff.provider_names[provider],
                   records_.staff.providers[provider], office_.DaysAgo(visited),
                   DueDate(office_.DaysAgo(visited), {recall.months, forms::PeriodUnit::Months}));
      tracked = &recall;
    }
    reminders_.Make(member.id, tracked);
    int owed = 0;
    const int visits = chance_.Below(4);
    for (int i = 0; i < visits; ++i) {
      const Charge& charge = chance_.OneOf(std::span<const Charge>(kCharges));
      const int days = visited + 180 * i;
      charges_.Row(member.id, 1, office_.DaysAgo(days), charge.code, charge.description,
                   Currency::FromWhole(charge.fee));
      if (chance_.Percent(75)) {
        charges_.Row(member.id, 2, office_.DaysAgo(days - 5), nullptr, "Payment", Currency::FromWhole(-charge.fee));
      } else {
        owed += charge.fee;
      }
    }
    if (owed != 0) {
      accounts_.Row(member.id, Currency::FromWhole(owed), Currency(), chance_.Percent(5) ? 1 : 0);
    }
  }

  std::int32_t Pick(const std::vector<std::int32_t>& ids) { return chance_.OneOf(std::span(ids)); }

  DemoOffice& office_;
  Random& chance_;
  const OfficeRecords& records_;
  TableWriter persons_;
  TableWriter families_ = office_.Writer("FamTable", "fID, fMEMID, fRSPID");
  TableWriter recalls_ = office_.Writer("RecTable", "rRecNum, rPid, rRCRecNum, rRecDoc, rRecDocID, rLasDat, rDueDat");
  TableWriter charges_ = office_.Writer("DTTable", "traID, TrapID, traTyp, traDat, traCod, traDes, traAmt");
  TableWriter accounts_ = office_.Writer("AccountTable", "AccID, AccPid, AccBal, AccPlaBal, AccPla");
  CoverageMaker coverages_{office_, records_.insurance};
  AppointmentMaker appointments_{office_, records_.operatories};
  ReminderMaker reminders_{office_, records_.reminder_kinds};
  HouseholdMaker households_{office_, records_.staff.locations};
  Person household_;  // what a family shares
  int size_ = 0;
  std::vector<Member> members_;
};

}  // namespace

void MakeFamilies(DemoOffice& office, const OfficeRecords& records, std::int32_t patients) {
  FamilyMaker(office, records).Make(patients);
}

}  // namespace host::demo
