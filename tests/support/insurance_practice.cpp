#include "support/insurance_practice.h"

#include <algorithm>
#include <set>
#include <span>
#include <sstream>
#include <utility>

#include "practice/demo_random.h"

namespace test_support {
namespace {

using host::demo::Random;

constexpr std::array<int, 11> kRelationships = {1, 2, 3, 4, 20, 21, 22, 29, 41, 53, 76};
constexpr std::array<std::string_view, 3> kNumbers = {"'10'", "'2''0'", "'30%'"};

class Maker {
 public:
  Maker(const host::Practice& practice, std::uint64_t seed)
      : connection_(*practice.Database().connection), offices_(practice.Offices()), chance_(seed) {}

  void Make() {
    for (const char* table : kInsuranceTables) {
      connection_.Execute(std::string("DELETE FROM ") + table);
    }
    session::Transaction transaction(connection_);
    MakeOffers();
    const int families = chance_.Between(2, 4);
    for (int i = 0; i < families; ++i) {
      MakeFamily();
    }
    for (const std::int32_t person : persons_) {
      MakeCoverages(person);
    }
    transaction.Commit();
  }

 private:
  struct Held {
    std::int32_t row;
    std::int32_t subscriber;
    std::int32_t family;
  };

  // A row in each office; its ID.
  template <class... Values>
  std::int32_t Row(const std::string& table, std::string_view columns, const Values&... values) {
    const std::int32_t id = ++last_[table];
    std::ostringstream sql;
    sql << "INSERT INTO " << table << " (" << columns << ", OfficeID)";
    const char* begin = " VALUES (";
    for (const std::int32_t office : offices_) {
      sql << std::exchange(begin, ", (") << id;
      ((sql << ", " << values), ...);
      sql << ", " << office << ")";
    }
    connection_.Execute(sql.str());
    return id;
  }

  void MakeOffers() {
    constexpr std::string_view kEnded = "'2020-01-02', '2021-03-04', 'Bob', 1";
    constexpr std::string_view kLive = "'2022-05-06', NULL, NULL, 0";
    constexpr std::string_view kLink = "elID, elEmpID, elInsID, elGroID, elStaDat, elEndDat, elEndWho, elFla";
    const int carriers = chance_.Between(2, 3);
    for (int i = 1; i <= carriers; ++i) {
      const std::int32_t carrier = Row("InsCoTable", "InsCoInd, InsCoNam", "'Carrier ''" + std::to_string(i) + "'");
      for (const auto number : kNumbers) {
        for (int rows = chance_.Percent(50) ? 2 : 0; rows > 0; --rows) {
          Row("IPTable", "IPRecNum, IPInsCoID, IPGroNum, IPCod, IPPCov", carrier, number,
              "'D" + std::to_string(rows) + "'", chance_.Below(100));
        }
      }
    }
    Row("IPTable", "IPRecNum, IPInsCoID, IPGroNum, IPCod, IPPCov", 0, "'GLOBAL'", "'D1'", 80);
    std::vector<std::int32_t> carrier_of;  // by plan, from 1 on
    const int plans = chance_.Between(3, 5);
    for (int i = 0; i < plans; ++i) {
      carrier_of.push_back(chance_.Between(1, carriers));
      Row("GroPlaTable", "GroPlaInd, GroPlaInsID, GroPlaGroNum, GroPlaNam", carrier_of.back(),
          chance_.OneOf(std::span<const std::string_view>(kNumbers)), "'Plan " + std::to_string(i) + "'");
    }
    const int employers = chance_.Between(2, 3);
    for (int i = 1; i <= employers; ++i) {
      const std::int32_t employer = Row("EmpTable", "EmpInd, EmpNam", "'O''Hara & 100% " + std::to_string(i) + "'");
      live_links_.push_back(Row("ELTable", kLink, employer, 0, 0, kLive));
      for (int plan = 1; plan <= plans; ++plan) {
        const std::int32_t carrier = carrier_of[static_cast<std::size_t>(plan) - 1];
        if (chance_.Percent(25)) {
          ended_links_.push_back(Row("ELTable", kLink, employer, carrier, plan, kEnded));
        }
        if (chance_.Percent(60)) {
          live_links_.push_back(Row("ELTable", kLink, employer, carrier, plan, kLive));
        }
      }
    }
    for (int i = 1; i <= 2; ++i) {
      Row("PhaTable", "PhaID, PhaNam", "'Pharmacy " + std::to_string(i) + "'");
    }
  }

  std::int32_t LiveLink() { return chance_.OneOf(std::span<const std::int32_t>(live_links_)); }

  void MakeFamily() {
    const std::int32_t head = last_["PATable"] + 1;
    const int size = chance_.Between(1, 4);
    for (int i = 0; i < size; ++i) {
      const bool works = i < 2;
      std::vector<std::int32_t> links;
      for (int holdings = works ? chance_.Below(4) : 0; holdings > 0; --holdings) {
        const std::int32_t link = LiveLink();
        if (std::ranges::find(links, link) == links.end()) {
          links.push_back(link);
        }
      }
      const auto job = [&](int chance) { return chance_.Percent(chance) ? LiveLink() : 0; };
      const std::int32_t person =
          Row("PATable", "pID, pLASNAM, pTypPat, pFAMHEAIND, pEmpID1, pEmpID2, pEmpID3, pEmpID4, pPhaID",
              "'Reed " + std::to_string(i) + "'", "'1'", head, links.empty() ? job(30) : links.front(), job(30),
              job(10), job(10), chance_.Below(3));
      Row("FamTable", "fID, fMEMID, fRSPID", person, head);
      persons_.push_back(person);
      family_[person] = head;
      MakeHoldings(person, links);
    }
  }

  void MakeHoldings(std::int32_t person, const std::vector<std::int32_t>& links) {
    constexpr std::string_view kHolding =
        "PatEmpID, PatEmpPatID, PatEmpElID, PatEmpOrd, PatEmpStaDat, PatEmpEndDat, PatEmpEndWho, PatEmpFla";
    if (chance_.Percent(30)) {
      const std::int32_t link = ended_links_.empty() || chance_.Percent(50)
                                    ? LiveLink()
                                    : chance_.OneOf(std::span<const std::int32_t>(ended_links_));
      const std::int32_t ended =
          Row("PatEmpTable", kHolding, person, link, chance_.Between(1, 3), "'2020-01-02', '2021-03-04', 'Bob', 1");
      Row("CovTable", kCoverage, person, ended, 1, 1, "'old', 1, 2, 3, 2020", "'2020-01-02', '2021-03-04', 'Bob', 1");
    }
    int order = 0;
    for (const std::int32_t link : links) {
      held_.push_back({Row("PatEmpTable", kHolding, person, link, ++order, "'2022-05-06', NULL, NULL, 0"), person,
                       family_[person]});
    }
  }

  // Through the family's holdings, seldom through a stranger's.
  void MakeCoverages(std::int32_t person) {
    std::vector<Held> through;
    for (const Held& held : held_) {
      if (chance_.Percent(held.family == family_[person] ? 70 : 5)) {
        through.insert(through.begin() + chance_.Below(through.size() + 1), held);
      }
    }
    int order = 0;
    for (const Held& held : through) {
      ++order;
      std::ostringstream amounts;
      amounts << "'card " << person << "-" << order << "', " << chance_.Below(900) << ", " << chance_.Below(900) << ", "
              << chance_.Below(50) << ", " << chance_.Between(2020, 2026);
      Row("CovTable", kCoverage, person, held.row, order,
          held.subscriber == person ? 1 : chance_.OneOf(std::span<const int>(kRelationships)), amounts.str(),
          "'2022-05-06', NULL, NULL, 0");
    }
  }

  static constexpr std::string_view kCoverage =
      "CovID, CovPatID, CovSubPatEmpID, CovOrd, CovRel, CovInsCoPatID, CovYTD, CovRemBal, CovRemDed, "
      "CovLastRenewalYear, CovStaDat, CovEndDat, CovEndWho, CovFla";

  session::Connection& connection_;
  std::vector<std::int32_t> offices_;
  Random chance_;
  std::map<std::string, std::int32_t> last_;
  std::vector<std::int32_t> live_links_;
  std::vector<std::int32_t> ended_links_;
  std::vector<std::int32_t> persons_;
  std::map<std::int32_t, std::int32_t> family_;  // the head by member
  std::vector<Held> held_;
};

std::string Told(const Offer& offer) {
  return "(employer " + std::to_string(offer.employer) + ", carrier " + std::to_string(offer.carrier) + ", plan " +
         std::to_string(offer.plan) + ")";
}

}  // namespace

void FillWithInsurance(const host::Practice& practice, std::uint64_t seed) {
  Maker(practice, seed).Make();
}

std::string InsurancePicture::Text() const {
  std::ostringstream out;
  std::multiset<std::string> offers;
  for (const auto& [row, offer] : links) {
    offers.insert(Told(offer));
  }
  for (const std::string& offer : offers) {
    out << "offered " << offer << "\n";
  }
  for (const auto& [subscriber, all] : holdings) {
    for (const Holding& held : all) {
      out << subscriber << " holds " << held.order << " " << Told(held.offer) << "\n";
    }
  }
  for (const auto& [patient, all] : coverages) {
    for (const Coverage& covered : all) {
      out << patient << " is covered " << covered.order << " by " << covered.subscriber << " " << Told(covered.offer)
          << " " << covered.details << "\n";
    }
  }
  for (const auto& [person, named] : jobs) {
    for (std::size_t i = 0; i < named.size(); ++i) {
      if (named[i] != 0) {
        out << person << " names " << i + 1 << " " << Told(OfferOf(named[i])) << "\n";
      }
    }
  }
  return out.str();
}

Offer InsurancePicture::OfferOf(std::int32_t link) const {
  const auto found = links.find(link);
  return found == links.end() ? Offer{-1, -1, -1} : found->second;
}

InsurancePicture ReadInsurance(const host::Practice& practice, std::int32_t office) {
  InsurancePicture picture;
  const std::string of_office = "OfficeID=" + std::to_string(office);
  const auto each = [&](const std::string& sql, const auto& use) {
    for (const auto rows = practice.Database().connection->Execute(sql); !rows->Eof(); rows->MoveNext()) {
      use([&](std::size_t field) { return session::ToId(rows->Get(field)); },
          [&](std::size_t field) { return session::ToText(rows->Get(field)); });
    }
  };
  each("SELECT elID, elEmpID, elInsID, elGroID FROM ELTable WHERE elFla=0 AND " + of_office,
       [&](const auto& id, const auto&) {
         picture.links[id(0)] = {id(1), id(2), id(3)};
       });
  struct Way {
    std::int32_t subscriber;
    std::int32_t link;
  };
  std::map<std::int32_t, Way> ways;
  each("SELECT PatEmpID, PatEmpPatID, PatEmpElID, PatEmpOrd FROM PatEmpTable WHERE PatEmpFla=0 AND " + of_office +
           " ORDER BY PatEmpPatID, PatEmpOrd, PatEmpID",
       [&](const auto& id, const auto&) {
         ways[id(0)] = {id(1), id(2)};
         picture.holdings[id(1)].push_back({id(0), id(3), id(2), picture.OfferOf(id(2))});
       });
  each(
      "SELECT CovID, CovPatID, CovSubPatEmpID, CovOrd, CovRel, CovInsCoPatID, CovYTD, CovRemBal, CovRemDed, "
      "CovLastRenewalYear FROM CovTable WHERE CovFla=0 AND " +
          of_office + " ORDER BY CovPatID, CovOrd, CovID",
      [&](const auto& id, const auto& text) {
        std::string details;
        for (std::size_t i = 4; i < 10; ++i) {
          details += text(i) + "|";
        }
        const auto way = ways.find(id(2));
        const Way through = way == ways.end() ? Way{-1, -1} : way->second;
        picture.coverages[id(1)].push_back(
            {id(0), id(3), through.subscriber, through.link, picture.OfferOf(through.link), details});
      });
  each("SELECT pID, pEmpID1, pEmpID2, pEmpID3, pEmpID4 FROM PATable WHERE " + of_office,
       [&](const auto& id, const auto&) {
         picture.jobs[id(0)] = {id(1), id(2), id(3), id(4)};
       });
  return picture;
}

TableRows ReadRows(const host::Practice& practice, std::string_view table, std::int32_t office) {
  TableRows all;
  for (const auto rows = practice.Database().connection->Execute("SELECT * FROM " + std::string(table) +
                                                                 " WHERE OfficeID=" + std::to_string(office));
       !rows->Eof(); rows->MoveNext()) {
    auto& columns = all[session::ToId(rows->Get(0))];
    for (std::size_t i = 0; i < rows->Fields().size(); ++i) {
      columns.push_back(session::ToText(rows->Get(i)));
    }
  }
  return all;
}

}  // namespace test_support
