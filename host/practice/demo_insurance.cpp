#include "practice/demo_insurance.h"

#include <algorithm>
#include <array>
#include <set>

#include "forms/text.h"
#include "practice/demo_plan_details.h"
#include "practice/demo_plans.h"
#include "practice/demo_procedures.h"
#include "practice/demo_words.h"

namespace host::demo {
namespace {

using forms::Currency;

constexpr std::array<std::string_view, 5> kFurtherPayers = {"Bridgewater Clearing House", "Copper Coast Eligibility",
                                                            "Meridian Claim Exchange", "State Dental Program",
                                                            "Union Benefit Network"};
constexpr std::array<std::string_view, 3> kPayerAbilities = {"Claims and eligibility", "Claims only",
                                                             "Eligibility only"};
constexpr std::array<std::string_view, 3> kCarrierRemarks = {"Claims within 12 months of the visit.",
                                                             "X-rays with every crown.", "Ask for the group office."};

// An address for mail, as "claims.cascade@example.com".
std::string MailOf(std::string_view what, std::string_view name) {
  return std::string(what) + "." + forms::ToLower(std::string(name.substr(0, name.find(' ')))) + "@example.com";
}

class InsuranceMaker {
 public:
  explicit InsuranceMaker(DemoOffice& office) : office_(office) {}

  Insurance Make(std::int32_t patients, std::int32_t location) {
    for (const Service& service : Services()) {
      services_.Row(service.code, service.code.substr(1), service.description, "1 - Charge",
                    Currency::FromWhole(service.fee), Currency::FromWhole(service.fee),
                    Currency::FromWhole(service.fee * 4 / 5), Currency::FromWhole(service.fee * 3 / 5),
                    Currency::FromWhole(service.fee), location);
    }
    for (const auto name : Carriers()) {
      MakeCarrier(name);
    }
    for (const auto name : kFurtherPayers) {
      payers_.Row(name, more_.OneOf(std::span<const std::string_view>(kPayerAbilities)));
    }
    MakeFurtherDetails();
    const int employers = 10 + std::min(patients / 80, 2000);
    for (int i = 0; i < employers; ++i) {
      MakeEmployer();
    }
    for (const int plans : {12, 6, 5}) {
      MakeLargeEmployer(plans);
    }
    for (const auto name : Pharmacies()) {
      MakePharmacy(name);
    }
    plans_.Flush();
    details_.Flush();
    for (TableWriter* writer : {&services_, &payers_, &carriers_, &employers_, &links_, &pharmacies_}) {
      writer->Flush();
    }
    return std::move(insurance_);
  }

 private:
  void MakeCarrier(std::string_view name) {
    auto& chance = office_.Chance();
    const Address address = office_.MakeAddress();
    const std::int32_t payer = payers_.Row(name, kPayerAbilities.front());
    const bool linked = chance.Percent(70);
    const std::string payer_id = linked ? std::to_string(60000 + 37 * payer) : std::string();
    const std::string fax = office_.MakePhone();
    const std::string phone = office_.MakePhone();
    const std::string second_phone = more_.Percent(50) ? office_.MakePhone(more_) : std::string();
    const std::string_view remark =
        more_.Percent(40) ? more_.OneOf(std::span<const std::string_view>(kCarrierRemarks)) : std::string_view();
    const bool switched = more_.Percent(25);
    const std::int32_t carrier = carriers_.Row(
        name, address.line1, OrNull{address.line2}, address.place.city, address.place.state, address.place.zip, phone,
        OrNull{second_phone}, fax, OrNull{remark}, OrNull{remark.empty() ? "" : "Group numbers are on the card."},
        MailOf("claims", name), forms::ToUpper(std::string(name.substr(0, 3))), OrNull{payer_id},
        OrNull{switched ? "/" : ""}, linked ? payer : 0);
    const int count = chance.Between(2, 4);
    for (int i = 0; i < count; ++i) {
      const bool managed = chance.Percent(15);
      PlanMaker::Agreed agreed = {.carrier = carrier, .managed = managed};
      agreed.number = std::to_string(chance.Between(100, 999)) + std::to_string(all_.size() + 100);
      agreed.name = std::string(managed ? "Managed Care " : "Group ") + std::to_string(i + 1);
      agreed.deductible = 25 * chance.Between(1, 4);
      agreed.maximum = 500 * chance.Between(2, 5);
      agreed.renewal = chance.Percent(80) ? "01-01" : "07-01";
      all_.push_back(plans_.Make(agreed));
      if (all_.size() % 4 == 1) {
        details_.MakeCustomary(all_.back());
      }
    }
  }

  // One plan of each type covers every service.
  void MakeFurtherDetails() {
    details_.MakeGlobal();
    std::set<std::string_view> types;
    for (std::size_t i = 0; i < all_.size(); ++i) {
      if (!types.insert(all_[i].type).second) {
        continue;
      }
      if (i % 4 != 0) {
        details_.MakeCustomary(all_[i]);
      }
      details_.MakeOthers(all_[i]);
    }
  }

  void MakeEmployer() {
    auto& chance = office_.Chance();
    const Address address = office_.MakeAddress();
    const std::int32_t id = employers_.Row(std::string(office_.LastName()) + " " + std::string(chance.OneOf(Trades())),
                                           address.line1, OrNull{address.line2}, address.place.city,
                                           address.place.state, address.place.zip, office_.MakePhone());
    const forms::Date since = office_.DaysAgo(chance.Between(1000, 4000));
    Employer employer;
    employer.no_coverage_link = links_.Row(id, 0, 0, since, nullptr, nullptr, 0);
    std::set<std::int32_t> offered;
    const int count = chance.Between(0, 3);
    for (int i = 0; i < count; ++i) {
      const Plan& plan = chance.OneOf(std::span<const Plan>(all_));
      if (!offered.insert(plan.id).second) {
        continue;
      }
      employer.offers.push_back(MakeOffer(id, plan, since));
    }
    // One managed-care plan is offered at least; nobody need have chosen it.
    const auto managed = std::ranges::find_if(all_, &Plan::Managed);
    if (insurance_.employers.empty() && managed != all_.end() && offered.insert(managed->id).second) {
      MakeOffer(id, *managed, since);
    }
    if (chance.Percent(20)) {
      const Plan& plan = chance.OneOf(std::span<const Plan>(all_));
      const int ended = chance.Between(30, 900);
      const std::int32_t link = links_.Row(id, plan.carrier, plan.id, since, office_.DaysAgo(ended), "admin", 1);
      insurance_.former.push_back({link, plan.maximum, plan.deductible, ended});
    }
    insurance_.employers.push_back(std::move(employer));
  }

  Offer MakeOffer(std::int32_t employer, const Plan& plan, forms::Date since) {
    return {links_.Row(employer, plan.carrier, plan.id, since, nullptr, nullptr, 0), plan.maximum, plan.deductible};
  }

  void MakeLargeEmployer(int plans) {
    const Address address = office_.MakeAddress(more_);
    std::string name(more_.OneOf(LastNames()));
    name += " " + std::string(more_.OneOf(Trades())) + " Group";
    const std::int32_t id = employers_.Row(name, address.line1, OrNull{address.line2}, address.place.city,
                                           address.place.state, address.place.zip, office_.MakePhone(more_));
    const forms::Date since = office_.DaysAgo(3000);
    links_.Row(id, 0, 0, since, nullptr, nullptr, 0);
    const auto first = static_cast<std::size_t>(more_.Below(all_.size()));
    for (std::size_t i = 0; i < static_cast<std::size_t>(plans); ++i) {
      insurance_.second_jobs.push_back(MakeOffer(id, all_[(first + 3 * i) % all_.size()], since));
    }
  }

  void MakePharmacy(std::string_view name) {
    const Address address = office_.MakeAddress();
    const std::string fax = office_.MakePhone();
    const std::string phone = office_.MakePhone();
    const std::string second_phone = office_.MakePhone(more_);
    const std::string remark = "Open until " + std::to_string(more_.Between(6, 10)) + " pm.";
    insurance_.pharmacies.push_back(pharmacies_.Row(name, address.line1, address.line1, OrNull{address.line2},
                                                    address.place.city, address.place.state, address.place.zip, phone,
                                                    second_phone, fax, MailOf("refill", name), remark, remark,
                                                    more_.Percent(50) ? "Delivers." : "Closed on Sundays."));
  }

  DemoOffice& office_;
  Random more_ = office_.Apart("insurance");
  TableWriter services_ = office_.Writer("SevCodTable",
                                         "sevcodID, sevcodCod, sevcodOffCod, sevcodDes, sevcodTyp, sevcodFee, "
                                         "sevcodFee1, sevcodFee2, sevcodFee3, sevcodFee4, OffLocID");
  TableWriter payers_ = office_.Writer("ePayerTable", "epPayID, epNam, epAddInf");
  TableWriter carriers_ = office_.Writer("InsCoTable",
                                         "InsCoInd, InsCoNam, InsCoAdd1, InsCoAdd2, InsCoCit, InsCoSta, InsCoZip, "
                                         "InsCoTel, InsCoTel2, InsCoFax, InsCoRem1, InsCoRem2, InsCoEma, InsCoPreFix, "
                                         "InsCoAccID, InsCoSWChr, epPayID");
  PlanMaker plans_{office_};
  PlanDetailMaker details_{office_};
  TableWriter employers_ =
      office_.Writer("EmpTable", "EmpInd, EmpNam, EmpAdd1, EmpAdd2, EmpCIT, EmpSTA, EmpZIP, EmpTEL");
  TableWriter links_ =
      office_.Writer("ELTable", "elID, elEmpID, elInsID, elGroID, elStaDat, elEndDat, elEndWho, elFla");
  TableWriter pharmacies_ = office_.Writer(
      "PhaTable",
      "PhaID, PhaNam, PhaAdd, PhaAdd1, PhaAdd2, PhaCit, PhaSta, PhaZip, PhaTel, PhaTel2, PhaFax, PhaEma, "
      "PhaRem, PhaRem1, PhaRem2");
  std::vector<Plan> all_;
  Insurance insurance_;
};

}  // namespace

Insurance MakeInsurance(DemoOffice& office, std::int32_t patients, std::int32_t location) {
  return InsuranceMaker(office).Make(patients, location);
}

}  // namespace host::demo
