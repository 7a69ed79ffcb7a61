#include "practice/demo_insurance.h"

#include <algorithm>
#include <array>
#include <set>

#include "practice/demo_words.h"

namespace host::demo {
namespace {

using forms::Currency;

struct Service {
  std::string_view code;
  std::string_view description;
  std::string_view category;
  int fee;
  int coverage;  // percent
};
// The office's own codes, by the thousands that plans cover them by.
constexpr std::array<Service, 16> kServices = {{{"D0101", "Examination, periodic", "Diagnostic", 62, 100},
                                                {"D0102", "Examination, first visit", "Diagnostic", 98, 100},
                                                {"D0201", "X-rays, two films", "X-Rays", 54, 100},
                                                {"D0202", "X-rays, full mouth", "X-Rays", 155, 100},
                                                {"D1001", "Cleaning, adult", "Preventive", 110, 100},
                                                {"D1002", "Cleaning, child", "Preventive", 78, 100},
                                                {"D1003", "Fluoride treatment", "Preventive", 42, 100},
                                                {"D2001", "Filling, one surface", "Restoration", 185, 80},
                                                {"D2002", "Filling, two surfaces", "Restoration", 235, 80},
                                                {"D2701", "Crown, ceramic", "Crowns", 1340, 50},
                                                {"D3001", "Root canal, front tooth", "Endodontics", 890, 80},
                                                {"D3002", "Root canal, molar", "Endodontics", 1290, 80},
                                                {"D4001", "Gum treatment, a quarter", "Periodontics", 275, 80},
                                                {"D5001", "Denture, upper", "Prosthodontics, RM", 1890, 50},
                                                {"D7001", "Extraction", "Oral Surgery", 220, 50},
                                                {"D9001", "Night guard", "Adjunctive Gen. Serv.", 610, 50}}};

struct Plan {
  std::int32_t id;
  std::int32_t carrier;
  bool managed;
};

class InsuranceMaker {
 public:
  explicit InsuranceMaker(DemoOffice& office) : office_(office) {}

  Insurance Make(std::int32_t patients, std::int32_t location) {
    for (const Service& service : kServices) {
      services_.Row(service.code, service.code.substr(1), service.description, "1 - Charge",
                    Currency::FromWhole(service.fee), Currency::FromWhole(service.fee),
                    Currency::FromWhole(service.fee * 4 / 5), Currency::FromWhole(service.fee * 3 / 5),
                    Currency::FromWhole(service.fee), location);
    }
    for (const auto name : Carriers()) {
      MakeCarrier(name);
    }
    const int employers = 10 + std::min(patients / 80, 2000);
    for (int i = 0; i < employers; ++i) {
      MakeEmployer();
    }
    for (const auto name : Pharmacies()) {
      const Address address = office_.MakeAddress();
      insurance_.pharmacies.push_back(pharmacies_.Row(name, address.line1, address.place.city, address.place.state,
                                                      address.place.zip, office_.MakePhone(), office_.MakePhone()));
    }
    for (TableWriter* writer :
         {&services_, &payers_, &carriers_, &plans_, &details_, &employers_, &links_, &pharmacies_}) {
      writer->Flush();
    }
    return std::move(insurance_);
  }

 private:
  void MakeCarrier(std::string_view name) {
    auto& chance = office_.Chance();
    const Address address = office_.MakeAddress();
    const std::int32_t payer = payers_.Row(name, "Claims and eligibility");
    const bool linked = chance.Percent(70);
    const std::string payer_id = linked ? std::to_string(60000 + 37 * payer) : std::string();
    const std::int32_t carrier = carriers_.Row(name, address.line1, OrNull{address.line2}, address.place.city,
                                               address.place.state, address.place.zip, office_.MakePhone(),
                                               office_.MakePhone(), OrNull{payer_id}, linked ? payer : 0);
    const int count = chance.Between(2, 4);
    for (int i = 0; i < count; ++i) {
      const bool managed = chance.Percent(15);
      const std::string number = std::to_string(chance.Between(100, 999)) + std::to_string(all_.size() + 100);
      const std::string plan_name = std::string(managed ? "Managed Care " : "Group ") + std::to_string(i + 1);
      all_.push_back({plans_.Row(carrier, number, plan_name, managed ? "CAPITATION" : "INDEMNITY",
                                 chance.Percent(80) ? "01-01" : "07-01",
                                 Currency::FromWhole(std::int64_t{500} * chance.Between(2, 5)),
                                 Currency::FromWhole(std::int64_t{25} * chance.Between(1, 4)), "1", 19, 24),
                      carrier, managed});
      if (all_.size() % 4 == 1) {
        MakeDetails(carrier, number, plan_name);
      }
    }
  }

  void MakeDetails(std::int32_t carrier, std::string_view number, std::string_view plan_name) {
    for (const Service& service : kServices) {
      details_.Row(carrier, number, plan_name, service.code, service.description, service.category,
                   Currency::FromWhole(service.fee), service.coverage, service.coverage == 100 ? "N" : "Y",
                   Currency::FromWhole(service.fee), service.coverage, service.coverage == 100 ? "N" : "Y");
    }
  }

  void MakeEmployer() {
    auto& chance = office_.Chance();
    const Address address = office_.MakeAddress();
    const std::int32_t id =
        employers_.Row(std::string(office_.LastName()) + " " + std::string(chance.OneOf(Trades())), address.line1,
                       address.place.city, address.place.state, address.place.zip, office_.MakePhone());
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
      employer.plan_links.push_back(links_.Row(id, plan.carrier, plan.id, since, nullptr, nullptr, 0));
    }
    // One managed-care plan is offered at least; nobody need have chosen it.
    const auto managed = std::ranges::find_if(all_, &Plan::managed);
    if (insurance_.employers.empty() && managed != all_.end() && offered.insert(managed->id).second) {
      links_.Row(id, managed->carrier, managed->id, since, nullptr, nullptr, 0);
    }
    if (chance.Percent(20)) {
      const Plan& plan = chance.OneOf(std::span<const Plan>(all_));
      links_.Row(id, plan.carrier, plan.id, since, office_.DaysAgo(chance.Between(30, 900)), "admin", 1);
    }
    insurance_.employers.push_back(std::move(employer));
  }

  DemoOffice& office_;
  TableWriter services_ = office_.Writer("SevCodTable",
                                         "sevcodID, sevcodCod, sevcodOffCod, sevcodDes, sevcodTyp, sevcodFee, "
                                         "sevcodFee1, sevcodFee2, sevcodFee3, sevcodFee4, OffLocID");
  TableWriter payers_ = office_.Writer("ePayerTable", "epPayID, epNam, epAddInf");
  TableWriter carriers_ = office_.Writer("InsCoTable",
                                         "InsCoInd, InsCoNam, InsCoAdd1, InsCoAdd2, InsCoCit, InsCoSta, InsCoZip, "
                                         "InsCoTel, InsCoFax, InsCoAccID, epPayID");
  TableWriter plans_ = office_.Writer("GroPlaTable",
                                      "GroPlaInd, GroPlaInsID, GroPlaGroNum, GroPlaNam, GroPlaCat, GroPlaEffDat, "
                                      "GroPlaMax1, GroPlaDed1, GroPlaPayTyp, GroPlaChiCovTil, GroPlaStuCovTil");
  TableWriter details_ = office_.Writer("IPTable",
                                        "IPRecNum, IPInsCoID, IPGroNum, IPPlaNam, IPCod, IPDes, IPCodCat, IPPFee, "
                                        "IPPCov, IPPDedApp, IPSFee, IPSCov, IPSDedApp");
  TableWriter employers_ = office_.Writer("EmpTable", "EmpInd, EmpNam, EmpAdd1, EmpCIT, EmpSTA, EmpZIP, EmpTEL");
  TableWriter links_ =
      office_.Writer("ELTable", "elID, elEmpID, elInsID, elGroID, elStaDat, elEndDat, elEndWho, elFla");
  TableWriter pharmacies_ =
      office_.Writer("PhaTable", "PhaID, PhaNam, PhaAdd1, PhaCit, PhaSta, PhaZip, PhaTel, PhaFax");
  std::vector<Plan> all_;
  Insurance insurance_;
};

}  // namespace

Insurance MakeInsurance(DemoOffice& office, std::int32_t patients, std::int32_t location) {
  return InsuranceMaker(office).Make(patients, location);
}

}  // namespace host::demo
