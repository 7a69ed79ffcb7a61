#include "practice/demo_office.h"

#include <algorithm>
#include <array>

#include "forms/phone.h"
#include "forms/text.h"
#include "practice/demo_words.h"

namespace host::demo {
namespace {

// An office's people live in this many neighbouring ZIP codes.
constexpr std::size_t kNeighbourhood = 40;

std::span<const Place> NeighbourhoodOf(Random& random) {
  const std::span<const Place> places(UnitedStatesPlaces());
  return places.subspan(static_cast<std::size_t>(random.Below(places.size() - kNeighbourhood)), kNeighbourhood);
}

// Of one patient in eight.
std::string_view AlertOf(std::int32_t patient) {
  constexpr std::array<std::string_view, 5> kAlerts = {"Allergic to penicillin", "Asthma", "Blood thinner",
                                                       "Diabetes, type 2", "Pacemaker: no ultrasonic scaler"};
  constexpr std::int32_t kEvery = 8;
  return patient % kEvery == kEvery - 1 ? kAlerts.at(static_cast<std::size_t>(patient / kEvery) % kAlerts.size())
                                        : std::string_view();
}

}  // namespace

std::string Digits(int number, std::size_t count) {
  std::string digits = std::to_string(number);
  return std::string(count - std::min(count, digits.size()), '0') + digits;
}

DemoOffice::DemoOffice(Practice& practice, std::int32_t office, Identities& identities, std::uint64_t seed)
    : database_(practice, office),
      identities_(identities),
      seed_(seed),
      random_(seed),
      details_(~seed),
      neighbourhood_(NeighbourhoodOf(random_)),
      area_code_(random_.Between(201, 989)) {}

Random DemoOffice::Apart(std::string_view called) const {
  constexpr std::uint64_t kPrime = 1099511628211U;
  std::uint64_t own = seed_;
  for (const char letter : called) {
    own = (own ^ static_cast<std::uint8_t>(letter)) * kPrime;
  }
  return Random(own);
}

TableWriter DemoOffice::Writer(std::string_view table, std::string_view columns) {
  return {database_, identities_, table, columns};
}

TableWriter DemoOffice::PersonWriter() {
  return Writer(
      "PATable",
      "pID, pLasNam, pFirNam, pNICNAM, pTTL, pProTTL, pSEX, pBirDat, pSSN, pADD1, pAdd2, pCIT, pSta, pZIP, "
      "pHomPho, pHomPho1, pHomCon, pBusPho, pBusPho1, pBusCon, pHomCell, pHomEma, pTypPat, pTypDoc, pTypRef, "
      "pTypPhy, pTypEmp, pFAMHEAIND, pPROIND, pREFIND, pPHY1, pEmpID1, pPhaID, pDocIni, "
      "pDOCFeeTyp, pGPDenFeeTyp, pAccTyp, OffLocID, pMEDALE, pDOCSPE, pDOCTAX, pDOCLIC, pDOCEIN, pDRILIC, pBILTTL, "
      "pCRECARTYP, pCRECARNUM, pDOCDATEMP, pDatRel, pNEXSTADAT");
}

std::int32_t DemoOffice::AddPerson(TableWriter& writer, const Person& person) {
  const std::string ssn = Digits(random_.Between(900, 999), 3) + "-" + Digits(random_.Below(100), 2) + "-" +
                          Digits(random_.Below(10000), 4);
  std::string mail = forms::ToLower(std::string(person.first) + "." + std::string(person.last)) + "@example.com";
  std::erase(mail, '\'');
  const auto flag = [](bool set) { return OrNull{set ? "1" : ""}; };
  return writer.Row(
      person.last, person.first, person.first, person.title, OrNull{person.professional_title},
      std::string_view(&person.sex, 1), person.birth, ssn, person.address.line1, OrNull{person.address.line2},
      person.address.place.city, person.address.place.state, person.address.place.zip, person.home_phone,
      person.home_phone, "Pho1", OrNull{person.work_phone}, OrNull{person.work_phone}, "Pho1", OrNull{person.cell},
      mail, flag(person.patient), flag(person.provider), flag(person.referral), flag(person.physician),
      OrNull{person.employee}, person.family_head == 0 ? writer.NextId() : person.family_head, person.provider_id,
      person.referral_id, person.physician_id, person.employer_link, person.pharmacy, OrNull{person.initials},
      person.fee_schedule, 1, "1", person.location, OrNull{person.patient ? AlertOf(writer.NextId()) : ""},
      OrNull{person.specialty}, OrNull{person.taxonomy}, OrNull{person.licence}, OrNull{person.tax_number},
      OrNull{person.driving_licence}, OrNull{person.billing_title}, OrNull{person.card_type},
      OrNull{person.card_number}, person.employed, person.released, person.next_statement);
}

Person DemoOffice::MakePerson(std::string_view last, bool woman, int age, Person like) {
  like.last = last;
  like.first = random_.OneOf(woman ? WomensNames() : MensNames());
  like.sex = woman ? 'F' : 'M';
  like.title = age < 18 ? (woman ? "Miss" : "Master") : (woman ? "Ms." : "Mr.");
  like.birth = DaysAgo(age * 365 + random_.Below(365));
  if (random_.Percent(70)) {
    like.cell = MakePhone();
  }
  return like;
}

Address DemoOffice::MakeAddress(Random& chance) const {
  Address address;
  address.line1 = std::to_string(chance.Between(1, 2400)) + " " + std::string(chance.OneOf(Streets()));
  if (chance.Percent(15)) {
    address.line2 = "Apt " + std::to_string(chance.Between(1, 60));
  }
  address.place = chance.OneOf(neighbourhood_);
  return address;
}

std::string DemoOffice::MakePhone(Random& chance) const {
  return forms::FormatPhone(Digits(area_code_, 3) + "555" + Digits(chance.Below(10000), 4));
}

forms::Date DemoOffice::DaysAgo(int days) const {
  return std::chrono::sys_days(kToday) - std::chrono::days(days);
}

std::string_view DemoOffice::LastName() {
  return random_.OneOf(LastNames());
}

}  // namespace host::demo
