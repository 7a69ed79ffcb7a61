#include "practice/link_check.h"

#include "support/insurance_practice.h"
#include "support/practice_host.h"

namespace {

using test_support::PracticeHost;

std::vector<std::string> Check(PracticeHost& host, bool mend) {
  std::vector<std::string> told;
  host::CheckLinks(host.session, mend, [&](const std::string& fault) { told.push_back(fault); });
  return told;
}

// Who holds what, and who is covered through whom and what, in which order.
std::string Held(const PracticeHost& host, std::int32_t office) {
  test_support::InsurancePicture picture = test_support::ReadInsurance(host.practice, office);
  picture.links.clear();
  picture.jobs.clear();
  return picture.Text();
}

// What no broken-off command leaves, but another program may.
TEST(LinkCheck, GivesBackWhatEveryoneHeld) {
  PracticeHost host(
      host::CreatePractice("sqlite::memory:", {.kind = session::kOfficeScoped, .office = 2, .offices = 2}));
  for (const char* damage :
       {"UPDATE ELTable SET elFla=1 WHERE elFla=0",
        "UPDATE PatEmpTable SET PatEmpFla=1 WHERE PatEmpID IN (SELECT CovSubPatEmpID FROM CovTable "
        "WHERE CovFla=0)",
        "UPDATE PatEmpTable SET PatEmpOrd=3*PatEmpOrd WHERE PatEmpFla=0",
        "UPDATE CovTable SET CovOrd=2 WHERE CovFla=0"}) {
    SCOPED_TRACE(damage);
    test_support::FillWithInsurance(host.practice, 4);
    EXPECT_THAT(Check(host, false), testing::IsEmpty());
    const std::string before = Held(host, 2);
    host.session.Connection().Execute(damage);
    const std::string elsewhere = Held(host, 1);
    EXPECT_EQ(elsewhere, Held(host, 2));
    EXPECT_NE(elsewhere, before);
    EXPECT_THAT(Check(host, false), testing::Not(testing::IsEmpty()));
    Check(host, true);
    EXPECT_THAT(Check(host, false), testing::IsEmpty());
    EXPECT_EQ(Held(host, 2), before);
    EXPECT_EQ(Held(host, 1), elsewhere);
  }
}

// Its plans and details go with a carrier, and who was covered by it keeps his employer.
TEST(LinkCheck, EndsWhatLedToACarrierThatIsGone) {
  PracticeHost host(host::CreatePractice("sqlite::memory:"));
  test_support::FillWithInsurance(host.practice, 4);
  host.Value("DELETE * FROM InsCoTable");
  host.Value("UPDATE ELTable SET elFla=1 WHERE elGroID<>0");
  Check(host, true);
  EXPECT_THAT(Check(host, false), testing::IsEmpty());
  EXPECT_EQ(host.Value("SELECT COUNT(*) FROM GroPlaTable"), "0");
  EXPECT_EQ(host.Value("SELECT IPGroNum FROM IPTable"), "GLOBAL");
  const auto left = test_support::ReadInsurance(host.practice, 1);
  for (const auto& [link, offer] : left.links) {
    EXPECT_EQ(offer.plan, 0);
  }
  EXPECT_NE(host.Value("SELECT COUNT(*) FROM PATable WHERE pEmpID1<>0"), "0");
}

}  // namespace
